// How the window is put together.
#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/commands/TimelinePopup.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/controls/SliceTabs.h"
#include "mainwindow/controls/TickBox.h"
#include "mainwindow/find/FilterBoxes.h"
#include "mainwindow/find/Finder.h"
#include "mainwindow/menus/CommandSearch.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/DroppedFiles.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/PutBack.h"
#include "mainwindow/slices/ShapePalette.h"
#include "mainwindow/slices/SliceEditor.h"
#include "mainwindow/slices/SliceTurns.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/slices/UndoRedo.h"
#include "mainwindow/slices/WindowPrinting.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/templates/TemplateBar.h"
#include "mainwindow/window/WindowStatus.h"
#include "mainwindow/WindowParts.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>

namespace mainwindow {

namespace {
constexpr int kResizeSettles = 250; // milliseconds
constexpr int kPrintersWait = 100;  // milliseconds from the first painting, and between two tries
} // namespace

void frmMain::BuildControls() {
    setObjectName(QStringLiteral("frmMain"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(true);
    parts_ = std::make_unique<WindowParts>(*this);
    look_ = std::make_unique<LookBar>(*this, *parts_->SmartMenuXP1a, *parts_->tlbFormat);
    status_ = std::make_unique<WindowStatus>(*this, *parts_->staMain);
    putBack_ = new PutBack(*this, *parts_->staMain);
    history_ = std::make_unique<UndoRedo>(*this);
    views_ = std::make_unique<SliceViews>(*this, parts_->picRHS);
    finder_ = std::make_unique<Finder>(*this, parts_->picRHS);
    lostMaps_ = std::make_unique<LostMapOffers>(*this, parts_->picRHS);
    start_ = std::make_unique<StartOffer>(*this, parts_->picRHS);
    filter_ = std::make_unique<FilterBoxes>(*this, *parts_->tlbFilter);
    turns_ = std::make_unique<SliceTurns>(*this, parts_->picRHS);
    overview_ = std::make_unique<Overview>(*this, parts_->picRHS);
    slices_ = std::make_unique<SliceEditor>(*this);
    printing_ = std::make_unique<WindowPrinting>(*this);
    popup_ = std::make_unique<TimelinePopup>(*this);
    drop_ = std::make_unique<DroppedFiles>(*this);
    // Behind drop_, so that their event filters see drags first.
    templates_ = std::make_unique<TemplateBar>(*this, *parts_->SSSplitter1);
    shapes_ = std::make_unique<ShapePalette>(*this);
    tmrResize_.setSingleShot(true);
    tmrResize_.setInterval(kResizeSettles);
    update_.setSingleShot(true);
    update_.setInterval(0);
    firstPaint_.setSingleShot(true);
    firstPaint_.setInterval(0);
    printersWait_.setSingleShot(true);
    printersWait_.setInterval(kPrintersWait);
}

void frmMain::ConnectControls() {
    connect(parts_->SmartMenuXP1a, &SmartMenu::Click, this, &frmMain::SmartMenuXP1_Click);
    connect(parts_->tlbMain, &Toolbar::ButtonClick, this, &frmMain::tlbMain_ButtonClick);
    connect(parts_->tlbFormat, &Toolbar::ButtonClick, this, &frmMain::tlbFormat_ButtonClick);
    connect(parts_->tlbFormat, &Toolbar::ButtonMenuClick, this, &frmMain::tlbFormat_ButtonMenuClick);
    connect(parts_->cboFont, &PickBox::Click, this, &frmMain::cboFont_Click);
    connect(parts_->cboFontSize, &PickBox::Click, this, &frmMain::cboFontSize_Click);
    connect(parts_->search, &CommandSearch::Done, this, [this] { CurrentView().setFocus(); });
    connect(parts_->staMain, &cStatusBar::HiddenClicked, this, [this] { ssDBGroups().showPopup(); });
    connect(parts_->staMain, &cStatusBar::ZoomIn, this,
            [this] { SmartMenuXP1_Click(QStringLiteral("keyZoomIn")); });
    connect(parts_->staMain, &cStatusBar::ZoomOut, this,
            [this] { SmartMenuXP1_Click(QStringLiteral("keyZoomOut")); });
    ConnectTabs();
    // The menu bar takes the focus for the time of a menu: its entries work where the focus was before.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, const QWidget *now) {
        if (now != menuBar()) ScheduleUpdate();
    });
    connect(&tmrResize_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "tmrResize_Timer", [this] { tmrResize_Timer(); }); });
    connect(&update_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "UpdateCommands", [this] { UpdateCommands(); }); });
    connect(&printersWait_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "LookForPrinters", [this] { LookForPrinters(); }); });
    connect(&firstPaint_, &QTimer::timeout, this, [this] {
        printersWait_.start();
        start_->Offer();
        overview_->Start();
    });
}

void frmMain::ConnectTabs() {
    connect(&tabStrip_, &clsTabStrip::Click, this,
            [this] { support::Report("frmMain", "SSTab_Click", [this] { SSTab_Click(); }); });
    connect(parts_->SSTab_ctl, &SliceTabs::Touched, this, [this] { views_->EndEdits(); });
    connect(parts_->SSTab_ctl, &SliceTabs::RenameAsked, this, [this](int tab) {
        tabStrip_.SetTheTab(tab);
        SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesRename"));
    });
    connect(parts_->SSTab_ctl, &SliceTabs::MoveAsked, this, [this](int from, int to) {
        support::Report("frmMain", "DoEditSlices", [&] { slices_->Move(from, to); });
    });
    connect(parts_->SSTab_ctl, &SliceTabs::MenuAsked, this, [this](int tab, const QPoint &at) {
        tabStrip_.SetTheTab(tab);
        if (QMenu *menu = parts_->SmartMenuXP1a->Menu(QStringLiteral("mnuEditSlices"))) menu->popup(at);
    });
}

} // namespace mainwindow
