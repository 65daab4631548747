#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "document/DefaultNodes.h"
#include "document/DoLoad.h"
#include "mainwindow/commands/TimelinePopup.h"
#include "mainwindow/controls/SliceTabs.h"
#include "mainwindow/find/FilterBoxes.h"
#include "mainwindow/find/Finder.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/Placement.h"
#include "mainwindow/slices/DroppedFiles.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/ShapePalette.h"
#include "mainwindow/slices/SliceEditor.h"
#include "mainwindow/slices/SliceTurns.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/slices/UndoRedo.h"
#include "mainwindow/slices/WindowPrinting.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/start/WindowJournal.h"
#include "mainwindow/templates/BarPane.h"
#include "mainwindow/templates/TemplateBar.h"
#include "mainwindow/window/frmPics.h"
#include "mainwindow/window/WindowStatus.h"
#include "mainwindow/WindowParts.h"
#include "settings/clsMRU.h"
#include "settings/clsRB.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Printers.h"
#include "timeline/Arrange.h"

#include <algorithm>
#include <QApplication>
#include <utility>

namespace mainwindow {

namespace {

// How far a window keeps from one that stands in the same place, in pixels.
constexpr QPoint kAside(28, 28);

// GetFiles looks at the positions below this one: four recent files.
constexpr int kRecentFilesLimit = 5;

int NextNumber() {
    int highest = 0;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        highest = std::max(highest, widget->property("formNumber").toInt());
    return highest + 1;
}

// Moves the window until it covers no other one exactly: it would seem not to be there.
void StepAside(frmMain &window) {
    const std::vector<frmMain *> forms = frmMain::Forms();
    const auto covered = [&](const frmMain *form) {
        return form != &window && form->isVisible() && !form->isMaximized() && form->pos() == window.pos();
    };
    while (std::any_of(forms.begin(), forms.end(), covered)) window.move(window.pos() + kAside);
}

} // namespace

frmMain::frmMain(support::Desktop &desktop) : desktop_(desktop) {
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty("formNumber", NextNumber());
    support::PassOn("Form_Load", [this] { Form_Load(); });
}

frmMain::~frmMain() {
    // The focus moves on while the controls are destroyed, which must not reach this window any more.
    qApp->disconnect(this);
    filter_.reset();
    overview_.reset(); // watches a surface
    AddFlow1_.SetWatchers({}, {});
    if (frmPics_) frmPics_->RemoveUsage(*this);
}

std::vector<frmMain *> frmMain::Forms() {
    std::vector<frmMain *> forms;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *form = qobject_cast<frmMain *>(widget)) forms.push_back(form);
    std::sort(forms.begin(), forms.end(), [](const frmMain *a, const frmMain *b) {
        return a->property("formNumber").toInt() < b->property("formNumber").toInt();
    });
    return forms;
}

void frmMain::Form_Load() {
    BuildControls();
    tabStrip_.SetTabStrip(parts_->SSTab_ctl);
    if (!clsSettings_) support::PassOn("Initialize", [this] { Initialize(); });
    journal_ = WindowJournal::For(*this);
    AddFlow1_.SetWatchers([this](diagram::Surface &surface) { views_->Add(surface); },
                          [this](diagram::Surface &surface) { views_->Remove(surface); });
    frmSplash::ShowDoing(tr("Loading Bar Items"));
    LoadRadBar();
    frmSplash::ShowDoing(tr("Loading Menus"));
    BuildMenus();
    frmSplash::ShowDoing(tr("Loading Toolbars"));
    parts_->FillToolbars(*frmPics_);
    shapes_->SetButton(*parts_->tlbView, *parts_->SmartMenuXP1a->Item(QStringLiteral("keyShapes")));
    parts_->SetEnabled(Needs::Printers, false); // until they are looked for
    ConnectControls();
    AddFlow1_afGotFocus(CurrentIndex());
    SetWindowCaption(document::UntitledCaption());
    frmSplash::ShowDoing(tr("Loading Defaults"));
    document::LoadDefaults(AddFlow1_[0]);
    timeline::CarryArrangement(AddFlow1_[0]);
    LoadCombos();
    frmSplash::ShowDoing(QString());
    ClickTab();
    document::MarkSaved(*this);
}

void frmMain::Initialize() {
    frmPics_ = &frmPics::Shared();
    frmPics_->AddUsage();
    tabStrip_.SetTabCount(1);
    setWindowIcon(frmPics_->ProgramIcon());
    clsSettings_ = std::make_unique<document::clsfrmMain>();
    ReadPlacement(desktop_.registry, *this);
    StepAside(*this);
}

void frmMain::BuildMenus() {
    parts_->SmartMenuXP1a->BuildMenus(settings::clsMRU(desktop_.registry).GetFiles(kRecentFilesLimit));
    SetMenuValue(QStringLiteral("mnuViewStartup"), settings::GetStartupEnabled());
    SetMenuValue(QStringLiteral("mnuViewRBPrompt"), RHSPrompt());
    SetMenuValue(QStringLiteral("mnuViewTemplates"), templates_->Pane().IsShown());
    SetMenuValue(QStringLiteral("mnuViewOverview"), Overview::IsEnabled());
    SetMenuValue(QStringLiteral("mnuViewStartPage"), settings::GetStartPageEnabled());
    SetMenuValue(QStringLiteral("mnuViewShapes"), shapes_->IsStripShown());
    SetMenuValue(QStringLiteral("mnuViewLook"), look_->IsShown());
}

void frmMain::Form_Activate() {
    if (std::exchange(activated_, true)) return;
    CurrentView().setFocus();
}

// Waits while a map is being loaded.
void frmMain::LookForPrinters() {
    if (InsideRoutine()) return printersWait_.start();
    parts_->SetEnabled(Needs::Printers, !desktop_.printers.Names().isEmpty());
}

bool frmMain::MenuValue(const QString &key) const { return parts_->SmartMenuXP1a->Value(key); }

void frmMain::SetMenuValue(const QString &key, bool checked) {
    parts_->SmartMenuXP1a->SetValue(key, checked);
}

bool frmMain::RHSPrompt() const { return settings::clsRB().GetDisplayPrompt(); }

bool frmMain::HasUnsavedWork() { return document::MustAskBeforeLosing(*this); }

diagram::Node *frmMain::oTemplateNode() const { return popup_->Month(); }

void frmMain::SMXP_Click(const QString &key) {
    support::Report("frmMain", "SMXP_Click", [&] {
        SetMousePointer(document::pointer::kHourglass);
        popup_->Click(key);
        SetMousePointer(document::pointer::kNormal);
    });
}

PickBox &frmMain::cboFont() const { return *parts_->cboFont; }
PickBox &frmMain::cboFontSize() const { return *parts_->cboFontSize; }
CommandSearch &frmMain::Search() const { return *parts_->search; }

void frmMain::ShowWindow() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

} // namespace mainwindow
