#include "mainwindow/slices/LookBar.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/edits/TextAlignment.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/look/LookButton.h"
#include "mainwindow/look/LookChoices.h"
#include "mainwindow/look/RecentColours.h"
#include "mainwindow/look/StateButton.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/NewLinkRouting.h"
#include "settings/GetSet.h"
#include "support/Val.h"
#include "widgets/ShapeGrid.h"
#include "widgets/ShapePopup.h"

#include <QAction>
#include <QEvent>

namespace mainwindow {

namespace {

const QString kHidden = QStringLiteral("LookBarHidden");

// Whether a separator follows the button: behind what nodes and links have, and behind what only nodes have.
bool EndsPart(LookOf what) { return what == LookOf::TextColour || what == LookOf::Shape; }

struct FontState {
    const char *key;
    bool (diagram::Font::*is)() const;
};
constexpr FontState kFonts[] = {
    {"BOLD", &diagram::Font::Bold}, {"ITALIC", &diagram::Font::Italic}, {"ULINE", &diagram::Font::Underline}};

struct AlignmentState {
    const char *key;
    int family;
};
constexpr AlignmentState kAlignments[] = {
    {"LEFT", kLeftAlignments}, {"RIGHT", kRightAlignments}, {"CENTER", kCentreAlignments}};

} // namespace

LookBar::LookBar(frmMain &window, const SmartMenu &menus, Toolbar &format)
    : window_(window),
      menus_(menus),
      format_(format),
      bar_(new Toolbar(QStringLiteral("tlbLook"), frmMain::tr("Look"), &window)) {
    for (const LookRow &row : LookRows()) AddButton(row);
    bar_->setVisible(support::Val(settings::GetSet(kHidden)) == 0);
    window.addToolBar(bar_);
    window.installEventFilter(this);
}

bool LookBar::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize) Place();
    return QObject::eventFilter(watched, event);
}

void LookBar::Place() {
    const int wanted = format_.sizeHint().width() + bar_->sizeHint().width();
    const bool below = wanted > window_.width();
    if (below == window_.toolBarBreak(bar_)) return;
    if (below)
        window_.insertToolBarBreak(bar_);
    else
        window_.removeToolBarBreak(bar_);
}

void LookBar::AddButton(const LookRow &row) {
    auto *button = new LookButton(row, bar_);
    bar_->addWidget(button);
    if (EndsPart(row.what)) bar_->addSeparator();
    buttons_.push_back(button);
    connect(button, &LookButton::Asked, this, [this, what = row.what] { Open(what); });
    connect(button, &LookButton::StepAsked, this, [this, button](int step) { StepFrom(*button, step); });
    connect(button, &LookButton::Done, this, [this] { window_.CurrentView().setFocus(); });
}

bool LookBar::IsShown() const { return !bar_->isHidden(); }

void LookBar::SetShown(bool shown) {
    if (shown == IsShown()) return;
    if (!shown && bar_->isAncestorOf(window_.focusWidget())) window_.CurrentView().setFocus();
    bar_->setVisible(shown);
    settings::SaveSet(kHidden, QString::number(shown ? 0 : 1));
}

void LookBar::TakeFocus() {
    Update();
    for (LookButton *button : buttons_)
        if (button->isEnabled() && button->isVisible()) return button->setFocus(Qt::ShortcutFocusReason);
}

void LookBar::StepFrom(const LookButton &button, int step) {
    const int count = int(buttons_.size());
    int at = int(button.Row().what);
    do at = (at + step + count) % count;
    while (!buttons_[std::size_t(at)]->isEnabled() || !buttons_[std::size_t(at)]->isVisible());
    buttons_[std::size_t(at)]->setFocus(Qt::TabFocusReason);
}

void LookBar::MayDiffer() {
    mayDiffer_ = true;
    window_.ScheduleUpdate();
}

void LookBar::Update() {
    const diagram::Surface &surface = window_.CurrentSurface();
    if (!mayDiffer_ && shown_ == &surface) return;
    mayDiffer_ = false;
    shown_ = &surface;
    const std::vector<LookState> states = StatesOf(surface, LookRows());
    for (LookButton *button : buttons_) {
        button->Show(states[std::size_t(button->Row().what)]);
        if (QAction *entry = menus_.Item(QLatin1String(button->Row().key)))
            entry->setEnabled(button->isEnabled());
    }
    ShowFormats(surface);
}

void LookBar::ShowFormats(const diagram::Surface &surface) const {
    for (const FontState &row : kFonts)
        format_.ShowState(QLatin1String(row.key), SharedFont(surface, row.is));
    for (const AlignmentState &row : kAlignments)
        format_.ShowState(QLatin1String(row.key), SharedAlignment(surface, row.family));
}

const LookState &LookBar::State(LookOf what) const { return buttons_[std::size_t(what)]->State(); }

std::vector<widgets::ChoiceSection> LookBar::Choices(LookOf what) {
    std::vector<widgets::ChoiceSection> sections = LookChoices(
        LookRowOf(what), State(what), window_.clsSettings().Levels(),
        {[this, what](double value) { Choose(what, value); }, [this, what] { ChooseOther(what); }});
    if (what == LookOf::Routing)
        sections.push_back(NewLinkChoices(State(what), {RoutingOfNewLinks(), [](int style) {
                                                            support::Report(
                                                                "frmMain", "LookBar_NewLinks",
                                                                [&] { SetRoutingOfNewLinks(style); });
                                                        }}));
    return sections;
}

void LookBar::Open(LookOf what) {
    Update();
    const LookButton &button = *buttons_[std::size_t(what)];
    if (!button.State().fits) return;
    if (what == LookOf::Shape)
        OpenShapes(PlaceOf(button));
    else
        OpenChoices(what, PlaceOf(button));
}

// A button that has no room in the bar opens its popup at the surface.
QRect LookBar::PlaceOf(const LookButton &button) const {
    if (button.isVisible()) return {button.mapToGlobal(QPoint()), button.size()};
    const QWidget &surface = *window_.CurrentView().viewport();
    return {surface.mapToGlobal(QPoint()), QSize(1, 1)};
}

void LookBar::OpenChoices(LookOf what, const QRect &place) {
    LookButton &button = *buttons_[std::size_t(what)];
    auto *popup = new widgets::ChoicePopup(button.accessibleName(), Choices(what), bar_);
    popup->setObjectName(button.objectName() + QStringLiteral("Popup"));
    connect(popup, &widgets::ChoicePopup::Closed, &button, [&button] { button.setDown(false); });
    button.setDown(true);
    popup->OpenAt(place);
}

void LookBar::OpenShapes(const QRect &place) {
    if (!shapes_) {
        shapes_ = new widgets::ShapePopup(bar_);
        shapes_->setObjectName(QStringLiteral("lookShapePopup"));
        connect(&shapes_->Grid(), &widgets::ShapeGrid::Chosen, this,
                [this](int shape) { Choose(LookOf::Shape, shape); });
    }
    const std::optional<double> shape = State(LookOf::Shape).value;
    shapes_->Grid().SetChosen(shape ? std::optional(int(*shape)) : std::nullopt);
    shapes_->PopUp(place);
}

void LookBar::Choose(LookOf what, double value) {
    support::Report("frmMain", "LookBar_Choose", [&] {
        if (GiveLook(window_.CurrentSurface(), LookRowOf(what), value)) window_.clsSettings().Dirty = true;
    });
}

// The dialog begins with the colour that the selection has.
void LookBar::ChooseOther(LookOf what) {
    support::Report("frmMain", "LookBar_Other", [&] {
        const std::optional<double> now = State(what).value;
        const support::Colour begin = now && *now != kNoFill ? support::Colour(*now) : support::kWhite;
        const support::Colour colour = window_.Desktop().dialogs.ShowColorDialog(&window_, true, begin);
        if (colour == support::kNoColour) return;
        NoteRecentColour(colour);
        Choose(what, colour);
    });
}

} // namespace mainwindow
