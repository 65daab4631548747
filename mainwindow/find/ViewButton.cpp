#include "mainwindow/find/ViewButton.h"

#include "document/FilterViews.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"

#include <QMenu>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace mainwindow {

using document::FilterView;

namespace {

constexpr int kChevron = 9, kEnd = 4; // pixels: the side of the chevron's field, and the room behind it

// An & in a name must not mark an access key.
QString EntryText(const QString &name) { return QString(name).replace(u'&', QLatin1String("&&")); }

QString CurrentView(document::clsfrmMain &settings) {
    for (const FilterView &view : settings.Views)
        if (document::IsTicked(settings, view)) return view.Name;
    return {};
}

} // namespace

ViewButton::ViewButton(frmMain &window, QWidget *parent) : QToolButton(parent), window_(window) {
    setObjectName(QStringLiteral("VIEWS"));
    setText(tr("Views"));
    setIcon(Icon(QStringLiteral("filter")));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setPopupMode(QToolButton::InstantPopup);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Views"));
    setToolTip(settings::ReplaceTerms(tr("Levels and groups that are shown together, under a name")));
    auto *menu = new QMenu(this);
    setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, &ViewButton::FillMenu);
}

QSize ViewButton::sizeHint() const { return QToolButton::sizeHint() + QSize(kChevron, 0); }

QRect ViewButton::Chevron() const {
    QRect place(0, 0, kChevron, kChevron);
    place.moveCenter(rect().center());
    place.moveRight(rect().right() - kEnd);
    return QStyle::visualRect(layoutDirection(), rect(), place);
}

// The style would draw its own sign of a menu in the corner, below the text.
void ViewButton::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.features &= ~QStyleOptionToolButton::HasMenu;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(palette().color(QPalette::ButtonText), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = QRectF(Chevron()).center();
    constexpr qreal kReach = 2.5;
    painter.drawPolyline(QPolygonF{middle + QPointF(-kReach, -kReach / 2), middle + QPointF(0, kReach / 2),
                                   middle + QPointF(kReach, -kReach / 2)});
}

void ViewButton::FillMenu() {
    menu()->clear();
    qDeleteAll(menu()->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly));
    AddViews();
    QAction *keep = menu()->addAction(tr("&Save these ticks as a view..."), this, &ViewButton::KeepTicks);
    keep->setObjectName(QStringLiteral("cmdKeepView"));
    if (window_.clsSettings().Views.empty()) return;
    AddSubmenu("mnuRenameView", tr("&Rename"), &ViewButton::RenameView);
    AddSubmenu("mnuDeleteView", tr("&Delete"), &ViewButton::DeleteView);
}

void ViewButton::AddViews() {
    document::clsfrmMain &settings = window_.clsSettings();
    for (const FilterView &view : settings.Views) {
        QAction *entry = menu()->addAction(EntryText(view.Name));
        entry->setCheckable(true);
        entry->setChecked(document::IsTicked(settings, view));
        connect(entry, &QAction::triggered, this, [this, name = view.Name] { ShowView(name); });
    }
    if (!settings.Views.empty()) menu()->addSeparator();
}

QMenu *ViewButton::AddSubmenu(const char *name, const QString &text,
                              void (ViewButton::*act)(const QString &view)) {
    QMenu *below = menu()->addMenu(text);
    below->setObjectName(QLatin1String(name));
    for (const FilterView &view : window_.clsSettings().Views)
        below->addAction(EntryText(view.Name), this, [this, act, view = view.Name] { (this->*act)(view); });
    return below;
}

void ViewButton::Run(const char *routine, const std::function<void()> &body) {
    support::Report("ViewButton", routine, body);
    window_.ScheduleUpdate();
}

void ViewButton::ShowView(const QString &view) {
    Run("ShowView", [&] {
        const FilterView *chosen = document::FindView(window_.clsSettings(), view);
        if (!chosen) return;
        const QStringList missing = document::TickView(window_.clsSettings(), *chosen);
        window_.LoadCombos();
        window_.ssDBGroups_CloseUp();
        if (!missing.isEmpty())
            window_.Status().TellInPassing(
                settings::ReplaceTerms(tr("The view %1 also ticks what this @MAP no longer has: %2"))
                    .arg(chosen->Name, missing.join(QLatin1String(", "))));
    });
}

bool ViewButton::MayReplace(const QString &view) {
    if (!document::FindView(window_.clsSettings(), view)) return true;
    return window_.Desktop().messageBoxes.Show(
               tr("There is a view %1 already. Do you want to replace it?").arg(view),
               support::Buttons::YesNo, support::Icon::Question, settings::Terms().TITLE,
               support::EnterPresses::No) == support::Answer::Yes;
}

void ViewButton::KeepTicks() {
    Run("KeepTicks", [&] {
        document::clsfrmMain &settings = window_.clsSettings();
        const QString name =
            window_.Desktop()
                .messageBoxes.InputBox(tr("Name of the view."), tr("Save View"), CurrentView(settings))
                .trimmed();
        if (name.isEmpty() || !MayReplace(name)) return;
        document::KeepView(settings, name);
        window_.Status().TellInPassing(tr("The ticks are kept as the view %1.").arg(name));
    });
}

void ViewButton::RenameView(const QString &view) {
    Run("RenameView", [&] {
        const QString name = window_.Desktop()
                                 .messageBoxes.InputBox(tr("Name of the view."), tr("Rename View"), view)
                                 .trimmed();
        if (name.isEmpty() || document::RenameView(window_.clsSettings(), view, name)) return;
        window_.Status().TellInPassing(tr("There is a view %1 already.").arg(name));
    });
}

void ViewButton::DeleteView(const QString &view) {
    Run("DeleteView", [&] {
        const bool wanted = window_.Desktop().messageBoxes.Show(
                                tr("Do you want to delete the view %1?").arg(view), support::Buttons::YesNo,
                                support::Icon::Question, settings::Terms().TITLE,
                                support::EnterPresses::No) == support::Answer::Yes;
        if (wanted) document::DeleteView(window_.clsSettings(), view);
    });
}

} // namespace mainwindow
