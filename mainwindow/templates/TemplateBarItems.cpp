// What can be done with an item of the template bar beside a click: menu, drag, preview, renaming, deleting.
#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/templates/BarFilling.h"
#include "mainwindow/templates/OwnTemplates.h"
#include "mainwindow/templates/TemplateBar.h"
#include "mainwindow/templates/TemplateDrag.h"
#include "mainwindow/templates/TemplatePreviews.h"
#include "mainwindow/templates/TemplateTip.h"
#include "mainwindow/templates/UseTemplate.h"
#include "settings/Settings.h"
#include "support/Files.h"

#include <QDrag>
#include <QMenu>
#include <QMimeData>

namespace mainwindow {

namespace {

constexpr QSize kDragRoom(200, 150); // pixels of the picture that is dragged

template <typename Body>
QAction *AddEntry(QMenu &menu, const QString &icon, const QString &text, const QKeySequence &key, Body body) {
    QAction *entry = menu.addAction(Icon(icon), text);
    entry->setShortcut(key); // shown only: the list takes it
    entry->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(entry, &QAction::triggered, &menu,
                     [body] { support::Report("frmMain", "RB_MenuClick", [&] { body(); }); });
    return entry;
}

} // namespace

void TemplateBar::Drag(int bar, int item) {
    const ListBarItem dragged = rb_->Item(bar, item);
    if (!IsTemplate(dragged)) return;
    QImage picture = previews_->Ready(dragged.key);
    auto *drag = new QDrag(rb_);
    drag->setMimeData(DragData(dragged.key).release());
    if (picture.isNull()) {
        drag->setPixmap(dragged.icon.pixmap(rb_->iconSize()));
    } else {
        const qreal ratio = rb_->devicePixelRatioF();
        picture = picture.scaled(kDragRoom * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
        drag->setPixmap(QPixmap::fromImage(picture));
        drag->setHotSpot(QRect(QPoint(), picture.size() / ratio).center());
    }
    drag->exec(Qt::CopyAction);
}

void TemplateBar::ShowTip(int bar, int item, const QRect &place) {
    tipped_ = rb_->Item(bar, item);
    tipPlace_ = place;
    previews_->Forget();
    const bool isTemplate = IsTemplate(tipped_);
    if (isTemplate) previews_->Prepare(tipped_.key);
    tip_->ShowBeside(place, isTemplate ? tipped_.caption : support::FileTitle(tipped_.key),
                     isTemplate ? previews_->Ready(tipped_.key) : QImage());
}

void TemplateBar::UpdateTip(const QString &file) {
    if (tip_->isVisible() && file == tipped_.key)
        tip_->ShowBeside(tipPlace_, tipped_.caption, previews_->Ready(file));
}

void TemplateBar::ShowMenu(int bar, int item, const QPoint &at) {
    auto *menu = new QMenu(rb_);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (item >= 0) AddItemEntries(*menu, bar, item);
    AddListEntries(*menu, bar);
    menu->popup(at);
}

// The items are found again by their files: the list can change while the menu is open.
void TemplateBar::AddItemEntries(QMenu &menu, int bar, int item) {
    const ListBarItem shown = rb_->Item(bar, item);
    const auto onItem = [this, key = shown.key](auto body) {
        return [this, key, body] {
            if (const auto place = rb_->FindItem(key)) body(*place);
        };
    };
    const auto open = [this](const ListBar::Place &place) { ClickLater(place.bar, place.item); };
    const bool isTemplate = IsTemplate(shown);
    menu.setDefaultAction(
        AddEntry(menu, {}, isTemplate ? tr("&Load...") : tr("&Open"), Qt::Key_Return, onItem(open)));
    if (isTemplate)
        AddEntry(menu, QStringLiteral("newe"), settings::ReplaceTerms(tr("&Add to this @SLICE")), {},
                 [this, key = shown.key] { AddToSlice(key); });
    menu.addSeparator();
    const bool own = MayChangeIn(rb_->BarKey(bar));
    AddEntry(menu, {}, tr("&Rename..."), Qt::Key_F2,
             onItem([this](const ListBar::Place &place) { Rename(place.bar, place.item); }))
        ->setEnabled(own);
    AddEntry(menu, QStringLiteral("delete"), tr("&Delete..."), Qt::Key_Delete,
             onItem([this](const ListBar::Place &place) { Delete(place.bar, place.item); }))
        ->setEnabled(own);
    menu.addSeparator();
}

void TemplateBar::AddListEntries(QMenu &menu, int bar) {
    if (bar >= 0)
        AddEntry(menu, QStringLiteral("open"), tr("Open &folder"), {},
                 [this, folder = rb_->BarKey(bar)] { window_.Desktop().launcher.OpenFile(folder); });
    AddEntry(menu, {}, tr("Refres&h"), {}, [] { Refresh(); });
    menu.addSeparator();
    AddEntry(menu, QStringLiteral("zoomin"), tr("La&rger icons"), {}, [this] {
        rb_->StepIcons(1);
    })->setEnabled(rb_->CanStepIcons(1));
    AddEntry(menu, QStringLiteral("zoomout"), tr("&Smaller icons"), {}, [this] {
        rb_->StepIcons(-1);
    })->setEnabled(rb_->CanStepIcons(-1));
}

void TemplateBar::AddToSlice(const QString &file) {
    const diagram::SurfaceView &view = window_.CurrentView();
    AddTemplateAt(window_, file, view.ToSurface(view.viewport()->rect().center()));
}

void TemplateBar::Rename(int bar, int item) {
    const ListBarItem former = rb_->Item(bar, item);
    if (!MayChangeIn(rb_->BarKey(bar))) return;
    const QString title = window_.Desktop().messageBoxes.InputBox(tr("Name of the template."),
                                                                  settings::Terms().TITLE, former.caption);
    if (!title.trimmed().isEmpty()) FollowFile(former.key, RenameTemplate(former.key, title));
}

void TemplateBar::Delete(int bar, int item) {
    const ListBarItem former = rb_->Item(bar, item);
    if (!MayChangeIn(rb_->BarKey(bar))) return;
    const auto answer = window_.Desktop().messageBoxes.Show(
        tr("Delete '%1'?\r\n\r\nThe file can't be brought back.").arg(former.caption),
        support::Buttons::YesNo, support::Icon::Question, settings::Terms().TITLE, support::EnterPresses::No);
    if (answer != support::Answer::Yes) return;
    DeleteTemplate(former.key);
    FollowFile(former.key, QString());
}

} // namespace mainwindow
