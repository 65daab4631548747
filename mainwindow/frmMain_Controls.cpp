// How the window is put together.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/CommandSearch.h"
#include "mainwindow/cProgressOnStatusBar.h"
#include "mainwindow/cStatusBar.h"
#include "mainwindow/FindBar.h"
#include "mainwindow/FontBox.h"
#include "mainwindow/frmPics.h"
#include "mainwindow/PickBox.h"
#include "mainwindow/PutBack.h"
#include "mainwindow/SliceTabs.h"
#include "mainwindow/SmartMenu.h"
#include "mainwindow/TickBox.h"
#include "mainwindow/TimelineMenu.h"
#include "mainwindow/Toolbar.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>

namespace mainwindow {

namespace {
constexpr int kResizeSettles = 250;                      // milliseconds
constexpr int kFontCharacters = 17, kSizeCharacters = 5; // of the fields of the font boxes

// Both in one, so that they stay together where a narrow window moves them out of the toolbar.
QWidget *Labelled(QWidget &box, const QString &label) {
    auto *both = new QWidget(box.parentWidget());
    auto *row = new QHBoxLayout(both);
    row->setContentsMargins(6, 0, 0, 0);
    auto *text = new QLabel(label, both);
    text->setBuddy(&box);
    row->addWidget(text);
    row->addWidget(&box);
    return both;
}
} // namespace

void frmMain::BuildControls() {
    setObjectName(QStringLiteral("frmMain"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(true);
    SmartMenuXP1a_ = new SmartMenu(*menuBar(), *this);
    search_ = new CommandSearch([this] { return SearchEntries(); }, menuBar());
    menuBar()->setCornerWidget(search_);
    SMXP_ = new TimelineMenu(this);
    timeline_ = DefaultTimelineRoutines(*this);
    BuildPanes();
    BuildToolbars();
    BuildStatusBar();
    tmrResize_.setSingleShot(true);
    tmrResize_.setInterval(kResizeSettles);
    update_.setSingleShot(true);
    update_.setInterval(0);
    firstPaint_.setSingleShot(true);
    firstPaint_.setInterval(0);
}

void frmMain::BuildPanes() {
    SSSplitter1_ = new QSplitter(Qt::Horizontal, this);
    SSSplitter1_->setObjectName(QStringLiteral("SSSplitter1"));
    SSSplitter1_->setChildrenCollapsible(false);
    picRHS_ = new QWidget(SSSplitter1_);
    picRHS_->setObjectName(QStringLiteral("picRHS"));
    picRHS_->installEventFilter(this);
    SSTab_ctl_ = new SliceTabs(picRHS_);
    SSTab_ctl_->setObjectName(QStringLiteral("SSTab_ctl"));
    SSTab_ctl_->setAccessibleName(settings::ReplaceTerms(QStringLiteral("@SLICEs")));
    SSTab_ctl_->setShape(QTabBar::RoundedSouth);
    SSTab_ctl_->setDocumentMode(true);
    SSTab_ctl_->setExpanding(false);
    SSTab_ctl_->setUsesScrollButtons(true);
    SSTab_ctl_->addTab(QStringLiteral("Map 1"));
    AddFindBar();
    setCentralWidget(SSSplitter1_);
}

void frmMain::AddFindBar() {
    findBar_ = new FindBar(picRHS_);
    connect(findBar_, &FindBar::Changed, this, &frmMain::ShowHits);
    connect(findBar_, &FindBar::Next, this, [this] { FindNext(1); });
    connect(findBar_, &FindBar::Previous, this, [this] { FindNext(-1); });
    connect(findBar_, &FindBar::Replace, this, [this] { ReplaceHits(false); });
    connect(findBar_, &FindBar::ReplaceAll, this, [this] { ReplaceHits(true); });
    connect(findBar_, &FindBar::Closed, this, &frmMain::CloseFindBar);
}

void frmMain::BuildStatusBar() {
    staMain_ = new cStatusBar(this);
    staMain_->setObjectName(QStringLiteral("staMain"));
    setStatusBar(staMain_);
    putBack_ = new PutBack(*this, *staMain_);
    prg1_ = new cProgressBar(staMain_);
    prg1_->setObjectName(QStringLiteral("prg1"));
    prg1_->hide();
    staMain_->Panel(QStringLiteral("PROGRESS"))->installEventFilter(this);
}

void frmMain::BuildToolbars() {
    tlbMain_ = new Toolbar(QStringLiteral("tlbMain"), tr("Main"), this);
    tlbFormat_ = new Toolbar(QStringLiteral("tlbFormat"), tr("Format"), this);
    tlbView_ = new Toolbar(QStringLiteral("tlbView"), tr("View"), this);
    tlbFilter_ = new Toolbar(QStringLiteral("tlbFilter"), tr("Filter"), this);
    for (Toolbar *bar : {tlbMain_, tlbView_, tlbFilter_}) addToolBar(bar);
    addToolBarBreak();
    addToolBar(tlbFormat_);
}

void frmMain::FillToolbars() {
    tlbMain_->AddButtons(MainButtons());
    AddFontBoxes();
    AddFilterBoxes();
    tlbFormat_->AddButtons(FormatButtons());
    for (const char *key : ViewButtons()) {
        if (QAction *entry = SmartMenuXP1a_->Item(QLatin1String(key)))
            tlbView_->addAction(entry);
        else if (*key == '\0')
            tlbView_->addSeparator();
    }
    staMain_->SetZoomMenu(SmartMenuXP1a_->Menu(QStringLiteral("mnuViewZoom")));
}

void frmMain::AddFontBoxes() {
    cboFont_ = new FontBox(QStringLiteral("cboFont"), tr("Font"), kFontCharacters, tlbFormat_);
    cboFontSize_ = new PickBox(QStringLiteral("cboFontSize"), tr("Font size"), kSizeCharacters, tlbFormat_);
    cboFont_->addItems(frmPics_->cboFont());
    cboFontSize_->addItems(frmPics_->cboFontSize());
    auto *sizes = new QIntValidator(1, diagram::kLargestFontSize, cboFontSize_);
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::RejectGroupSeparator);
    sizes->setLocale(plain);
    cboFontSize_->setValidator(sizes);
    for (PickBox *box : {cboFont_, cboFontSize_}) {
        tlbFormat_->addWidget(box);
        connect(
            box, &PickBox::Done, this, [this] { CurrentView().setFocus(); }, Qt::QueuedConnection);
    }
    tlbFormat_->addSeparator();
}

void frmMain::AddFilterBoxes() {
    ssDBGroups_ = new TickBox(QStringLiteral("ssDBGroups"), tr("Groups that are shown"), tlbFilter_);
    ssDBLevels_ = new TickBox(QStringLiteral("ssDBLevels"), tr("Levels that are shown"), tlbFilter_);
    const std::pair<TickBox *, QString> boxes[] = {{ssDBGroups_, tr("Groups")}, {ssDBLevels_, tr("Levels")}};
    for (const auto &[box, label] : boxes) tlbFilter_->addWidget(Labelled(*box, label));
    connect(ssDBGroups_, &TickBox::Click, this, &frmMain::ssDBGroups_Click);
    connect(ssDBGroups_, &TickBox::CloseUp, this, &frmMain::ssDBGroups_CloseUp);
    connect(ssDBLevels_, &TickBox::Click, this, &frmMain::ssDBLevels_Click);
    connect(ssDBLevels_, &TickBox::CloseUp, this, &frmMain::ssDBLevels_CloseUp);
}

void frmMain::ConnectControls() {
    connect(SmartMenuXP1a_, &SmartMenu::Click, this, &frmMain::SmartMenuXP1_Click);
    connect(tlbMain_, &Toolbar::ButtonClick, this, &frmMain::tlbMain_ButtonClick);
    connect(tlbFormat_, &Toolbar::ButtonClick, this, &frmMain::tlbFormat_ButtonClick);
    connect(tlbFormat_, &Toolbar::ButtonMenuClick, this, &frmMain::tlbFormat_ButtonMenuClick);
    connect(cboFont_, &PickBox::Click, this, &frmMain::cboFont_Click);
    connect(cboFontSize_, &PickBox::Click, this, &frmMain::cboFontSize_Click);
    connect(SMXP_, &TimelineMenu::Click, this, &frmMain::SMXP_Click);
    connect(search_, &CommandSearch::Done, this, [this] { CurrentView().setFocus(); });
    connect(staMain_, &cStatusBar::HiddenClicked, this, [this] { ssDBGroups_->showPopup(); });
    connect(staMain_, &cStatusBar::ZoomIn, this, [this] { SmartMenuXP1_Click(QStringLiteral("keyZoomIn")); });
    connect(staMain_, &cStatusBar::ZoomOut, this,
            [this] { SmartMenuXP1_Click(QStringLiteral("keyZoomOut")); });
    ConnectTabs();
    connect(qApp, &QApplication::focusChanged, this, &frmMain::FocusChanged);
    connect(&tmrResize_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "tmrResize_Timer", [this] { tmrResize_Timer(); }); });
    connect(&update_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "UpdateCommands", [this] { UpdateCommands(); }); });
    connect(&firstPaint_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "LookForPrinters", [this] { LookForPrinters(); }); });
}

void frmMain::ConnectTabs() {
    connect(&tabStrip_, &clsTabStrip::Click, this,
            [this] { support::Report("frmMain", "SSTab_Click", [this] { SSTab_Click(); }); });
    connect(SSTab_ctl_, &SliceTabs::Touched, this, &frmMain::KeepTypedText);
    connect(SSTab_ctl_, &SliceTabs::RenameAsked, this, [this](int tab) {
        tabStrip_.SetTheTab(tab);
        SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesRename"));
    });
    connect(SSTab_ctl_, &SliceTabs::MoveAsked, this, [this](int from, int to) {
        support::Report("frmMain", "DoEditSlices", [&] { MoveSlice(from, to); });
    });
    connect(SSTab_ctl_, &SliceTabs::MenuAsked, this, &frmMain::ShowSliceMenu);
}

} // namespace mainwindow
