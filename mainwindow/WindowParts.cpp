#include "mainwindow/WindowParts.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/cProgressOnStatusBar.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/controls/FontBox.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/controls/SliceTabs.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/CommandMatch.h"
#include "mainwindow/menus/CommandSearch.h"
#include "mainwindow/menus/FormatMenu.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/SearchEntries.h"
#include "mainwindow/window/frmPics.h"
#include "settings/Settings.h"

#include <QAction>
#include <QIntValidator>
#include <QMenuBar>
#include <QSplitter>

namespace mainwindow {

namespace {
constexpr int kFontCharacters = 17, kSizeCharacters = 5; // of the fields of the font boxes
} // namespace

WindowParts::WindowParts(frmMain &window)
    : SmartMenuXP1a(new SmartMenu(*window.menuBar(), window)), window_(window) {
    search = new CommandSearch([this] { return SearchEntries(window_, *SmartMenuXP1a, *tlbFormat); },
                               window.menuBar());
    window.menuBar()->setCornerWidget(search);
    BuildPanes();
    BuildToolbars();
    BuildStatusBar();
}

void WindowParts::BuildPanes() {
    SSSplitter1 = new QSplitter(Qt::Horizontal, &window_);
    SSSplitter1->setObjectName(QStringLiteral("SSSplitter1"));
    SSSplitter1->setChildrenCollapsible(false);
    picRHS = new QWidget(SSSplitter1);
    picRHS->setObjectName(QStringLiteral("picRHS"));
    picRHS->installEventFilter(&window_);
    SSTab_ctl = new SliceTabs(picRHS);
    SSTab_ctl->setObjectName(QStringLiteral("SSTab_ctl"));
    SSTab_ctl->setAccessibleName(settings::ReplaceTerms(QStringLiteral("@SLICEs")));
    SSTab_ctl->setShape(QTabBar::RoundedSouth);
    SSTab_ctl->setDocumentMode(true);
    SSTab_ctl->setExpanding(false);
    SSTab_ctl->setUsesScrollButtons(true);
    SSTab_ctl->addTab(QStringLiteral("Map 1"));
    window_.setCentralWidget(SSSplitter1);
}

void WindowParts::BuildStatusBar() {
    staMain = new cStatusBar(&window_);
    staMain->setObjectName(QStringLiteral("staMain"));
    window_.setStatusBar(staMain);
    prg1 = new cProgressBar(staMain);
    prg1->setObjectName(QStringLiteral("prg1"));
    prg1->hide();
    staMain->Panel(QStringLiteral("PROGRESS"))->installEventFilter(&window_);
}

void WindowParts::BuildToolbars() {
    tlbMain = new Toolbar(QStringLiteral("tlbMain"), frmMain::tr("Main"), &window_);
    tlbFormat = new Toolbar(QStringLiteral("tlbFormat"), frmMain::tr("Format"), &window_);
    tlbView = new Toolbar(QStringLiteral("tlbView"), frmMain::tr("View"), &window_);
    tlbFilter = new Toolbar(QStringLiteral("tlbFilter"), frmMain::tr("Filter"), &window_);
    for (Toolbar *bar : {tlbMain, tlbView, tlbFilter}) window_.addToolBar(bar);
    window_.addToolBarBreak();
    window_.addToolBar(tlbFormat);
}

void WindowParts::FillToolbars(frmPics &pics) {
    tlbMain->AddButtons(MainButtons());
    AddFontBoxes(pics);
    tlbFormat->AddButtons(FormatButtons());
    AddFormatEntries(*SmartMenuXP1a, *tlbFormat);
    for (const char *key : ViewButtons()) AddViewButton(QLatin1String(key));
    staMain->SetZoomMenu(SmartMenuXP1a->Menu(QStringLiteral("mnuViewZoom")));
}

void WindowParts::AddViewButton(const QString &key) const {
    QAction *entry = SmartMenuXP1a->Item(key);
    if (!entry) {
        tlbView->addSeparator();
        return;
    }
    entry->setToolTip(WithKeys(PlainCaption(entry->text()), KeysOf(*FindCommand(key))));
    tlbView->addAction(entry);
}

void WindowParts::AddFontBoxes(frmPics &pics) {
    cboFont = new FontBox(QStringLiteral("cboFont"), frmMain::tr("Font"), kFontCharacters, tlbFormat);
    cboFontSize =
        new PickBox(QStringLiteral("cboFontSize"), frmMain::tr("Font size"), kSizeCharacters, tlbFormat);
    cboFont->addItems(pics.cboFont());
    cboFontSize->addItems(pics.cboFontSize());
    auto *sizes = new QIntValidator(1, diagram::kLargestFontSize, cboFontSize);
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::RejectGroupSeparator);
    sizes->setLocale(plain);
    cboFontSize->setValidator(sizes);
    for (PickBox *box : {cboFont, cboFontSize}) {
        tlbFormat->addWidget(box);
        QObject::connect(
            box, &PickBox::Done, &window_, [this] { window_.CurrentView().setFocus(); },
            Qt::QueuedConnection);
    }
    tlbFormat->addSeparator();
}

void WindowParts::SetEnabled(Needs needs, bool enabled) const {
    SmartMenuXP1a->SetEnabled(needs, enabled);
    tlbMain->SetEnabled(needs, enabled);
    tlbFormat->SetEnabled(needs, enabled);
}

} // namespace mainwindow
