#include "mainwindow/slices/ShapePalette.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/slices/HintText.h"
#include "mainwindow/slices/RecentShapes.h"
#include "mainwindow/slices/ShapeDrops.h"
#include "mainwindow/slices/ShapeStrip.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/window/WindowStatus.h"
#include "support/Error.h"
#include "widgets/ShapeGrid.h"
#include "widgets/ShapeNames.h"
#include "widgets/ShapePopup.h"

#include <QAction>
#include <QToolBar>

namespace mainwindow {

namespace {
const QString kEntry = QStringLiteral("mnuViewShapes");
} // namespace

ShapePalette::ShapePalette(frmMain &window) : window_(window), drops_(std::make_unique<ShapeDrops>(window)) {
    if (ShapeStrip::IsWanted()) MakeStrip();
}

// Not left to the end of the window's children: the strip's destructor asks the window for its dock area.
ShapePalette::~ShapePalette() { delete strip_; }

void ShapePalette::SetButton(QToolBar &bar, QAction &button) {
    bar_ = &bar;
    button_ = &button;
    ShowChosen();
}

void ShapePalette::PopUp() {
    if (!popup_) {
        popup_ = new widgets::ShapePopup(&window_);
        QObject::connect(&popup_->Grid(), &widgets::ShapeGrid::Chosen, &window_,
                         [this](int shape) { Choose(shape); });
    }
    popup_->Grid().SetRecent(RecentShapes());
    ShowChosen(); // the press has toggled the button
    const QWidget *button = bar_ ? bar_->widgetForAction(button_) : nullptr;
    const QWidget &place = button && button->isVisible() ? *button : window_.CurrentView();
    const QSize size = button == &place ? place.size() : QSize(1, 1);
    popup_->PopUp({place.mapToGlobal(QPoint(0, 0)), size});
}

void ShapePalette::MakeStrip() {
    strip_ = new ShapeStrip(window_);
    strip_->Grid().SetRecent(RecentShapes());
    strip_->Grid().SetChosen(Chosen());
    QObject::connect(&strip_->Grid(), &widgets::ShapeGrid::Chosen, &window_,
                     [this](int shape) { Choose(shape); });
    QObject::connect(strip_, &ShapeStrip::Left, &window_, [this] { window_.CurrentView().setFocus(); });
    QObject::connect(strip_, &ShapeStrip::Closed, &window_,
                     [this] { support::Report("frmMain", "ShapeStrip", [this] { SetStripShown(false); }); });
    strip_->show();
}

bool ShapePalette::IsStripShown() const { return strip_ && !strip_->isHidden(); }

void ShapePalette::HideStrip() {
    if (strip_->isAncestorOf(window_.focusWidget())) window_.CurrentView().setFocus();
    strip_->hide();
}

void ShapePalette::SetStripShown(bool shown) {
    window_.SetMenuValue(kEntry, shown);
    if (shown == IsStripShown()) return;
    if (!shown) {
        HideStrip();
    } else if (strip_) {
        strip_->Grid().SetRecent(RecentShapes());
        strip_->show();
    } else {
        MakeStrip();
    }
    ShapeStrip::SetWanted(shown);
}

std::optional<int> ShapePalette::Chosen() const { return window_.Views().ShapeToDraw(); }

// The recent shapes at the top of the grids change when these are shown the next time, not under the pointer.
void ShapePalette::Choose(int shape) {
    window_.Start().Leave();
    window_.Views().SetShapeToDraw(shape);
    ShowChosen();
    window_.Status().TellHintOfView(
        HintText(diagram::Hint::DragDrawsShape).replace(QStringLiteral("%1"), widgets::ShapeCaption(shape)),
        true);
    window_.CurrentView().setFocus();
    support::Report("frmMain", "RememberShape", [&] { RememberShape(shape); });
}

void ShapePalette::Drop() {
    window_.Views().SetShapeToDraw(std::nullopt);
    window_.Status().TellHintOfView({});
    ShowChosen();
}

std::vector<widgets::ShapeGrid *> ShapePalette::Grids() const {
    std::vector<widgets::ShapeGrid *> grids;
    if (popup_) grids.push_back(&popup_->Grid());
    if (strip_) grids.push_back(&strip_->Grid());
    return grids;
}

void ShapePalette::ShowChosen() {
    const std::optional<int> shape = Chosen();
    for (widgets::ShapeGrid *grid : Grids()) grid->SetChosen(shape);
    if (!button_) return;
    button_->setIcon(shape ? ShapeIcon(*shape) : Icon(QStringLiteral("shapes")));
    button_->setCheckable(shape.has_value());
    button_->setChecked(shape.has_value());
    const QString name = shape ? widgets::ShapeCaption(*shape) : frmMain::tr("choose one to draw with");
    const QString keys = KeysOf(*FindCommand(QStringLiteral("keyShapes")));
    button_->setToolTip(frmMain::tr("Shape: %1 (%2)").arg(name, keys));
}

} // namespace mainwindow
