// The menu View, but for Dates (DatesCommands.cpp) and Shapes (ShapeCommands.cpp).
#include "mainwindow/menus/Commands.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "diagram/view/ZoomSteps.h"
#include "dialogs/PropertyForms.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/CommandSearch.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/SliceTurns.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/start/StartupSetting.h"
#include "mainwindow/templates/BarPane.h"
#include "mainwindow/templates/TemplateBar.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/clsRB.h"
#include "settings/Settings.h"
#include "support/clsPaths.h"

namespace mainwindow {

namespace {

using document::pointer::kNormal;

void mnuViewGrid(frmMain &window) {
    window.CurrentSurface().SetGridLines(window.MenuValue(QStringLiteral("mnuViewGrid")));
}

void mnuViewSnapGrid(frmMain &window) {
    window.CurrentSurface().Screen().SetSnapToGrid(window.MenuValue(QStringLiteral("mnuViewSnapGrid")));
}

void SetZoom(frmMain &window, int percent) {
    window.CurrentSurface().SetxZoom(percent);
    window.CurrentSurface().SetyZoom(percent);
    window.CurrentView().FollowStoredZoom(); // also where the user zoomed away from the same value
}

void mnuViewZoom100(frmMain &window) { SetZoom(window, 100); }
void mnuViewZoom150(frmMain &window) { SetZoom(window, 150); }
void mnuViewZoom75(frmMain &window) { SetZoom(window, 75); }
void mnuViewZoomFit(frmMain &window) { SetZoom(window, 0); }

void ZoomAroundMiddle(frmMain &window, double percent) {
    diagram::SurfaceView &view = window.CurrentView();
    view.ZoomAt(percent, QRectF(view.viewport()->rect()).center());
}

void keyZoomIn(frmMain &window) {
    ZoomAroundMiddle(window, diagram::NextZoom(window.CurrentView().ShownZoom()));
}
void keyZoomOut(frmMain &window) {
    ZoomAroundMiddle(window, diagram::PreviousZoom(window.CurrentView().ShownZoom()));
}

QRectF SelectedArea(diagram::Scene &scene) {
    QRectF area;
    for (const diagram::Node *node : scene.Model().SelectedNodes()) area |= scene.Bounds(*node);
    for (const diagram::Link *link : scene.Model().SelectedLinks()) area |= scene.Bounds(*link);
    return area;
}

void keyZoomSelection(frmMain &window) {
    constexpr double kShare = 0.85; // of the window that it fills
    diagram::SurfaceView &view = window.CurrentView();
    const QRectF area = SelectedArea(view.TheScene());
    if (area.isEmpty()) return;
    const QSizeF seen = QSizeF(view.viewport()->size()) * diagram::kTwipsPerPixel;
    const double scale = kShare * qMin(seen.width() / area.width(), seen.height() / area.height());
    view.ZoomAt(qBound(10.0, scale * 100, 800.0), view.FromSurface(area.center()));
    QRectF around(QPointF(), seen * (100 / view.ShownZoom()));
    around.moveCenter(area.center());
    view.EnsureVisible(around);
}

void mnuViewBackgroundColor(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    window.SetMousePointer(kNormal);
    const support::Colour colour =
        window.Desktop().dialogs.ShowColorDialog(&window, true, surface.BackColor());
    if (colour != support::kNoColour) surface.SetBackColor(colour);
}

void mnuViewBackgroundPicture(frmMain &window) {
    using namespace support::fileflags;
    window.SetMousePointer(kNormal);
    int row = 1;
    const QString file = window.Desktop().dialogs.ShowOpenFileDialog(
        QStringLiteral("All Picture Files|*.jpg;*.jpeg;*.bmp"), QStringLiteral("*.jpg"),
        support::clsPaths().GetMyDocsPath(), kExplorer | kFileMustExist | kHideReadOnly, &window, row);
    if (!file.isEmpty()) window.CurrentSurface().SetPicture(diagram::Picture::FromFile(file));
}

void mnuViewBackgroundClear(frmMain &window) {
    window.CurrentSurface().SetBackColor(support::kWhite);
    window.CurrentSurface().SetPicture({});
}

void mnuViewLevels(frmMain &window) {
    dialogs::LevelsFormArgument argument{window, window.clsSettings().Levels()};
    const LevelColours former = ColoursOf(argument.oLevels);
    document::Show(window, argument);
    window.LoadLevelCombo();
    window.ssDBLevels_CloseUp();
    window.DoFixColors(former);
    RenameLanes(window);
    if (!argument.status.isEmpty()) window.Status().TellInPassing(argument.status);
}

void mnuViewGroups(frmMain &window) {
    dialogs::GroupsFormArgument argument{window, window.clsSettings().Groups()};
    document::Show(window, argument);
    window.LoadGroupCombo();
    window.ssDBLevels_CloseUp();
    RenameLanes(window);
    if (!argument.status.isEmpty()) window.Status().TellInPassing(argument.status);
}

// The check follows what the question's answer has become, not the click.
void mnuViewRBPrompt(frmMain &window) {
    const QString key = QStringLiteral("mnuViewRBPrompt");
    settings::clsRB prompt;
    if (!window.MenuValue(key)) return prompt.ResetPrompt();
    window.SetMousePointer(kNormal);
    prompt.DisplayPrompt(true);
    window.SetMenuValue(key, prompt.GetDisplayPrompt());
}

void mnuViewTemplates(frmMain &window) {
    const bool shown = window.MenuValue(QStringLiteral("mnuViewTemplates"));
    if (!shown && window.Templates().RB().hasFocus()) window.CurrentView().setFocus();
    window.Templates().Pane().SetShown(shown);
}

void mnuViewStartup(frmMain &window) {
    SetStartupEnabled(window.MenuValue(QStringLiteral("mnuViewStartup")));
}

// An empty window shows the page at once.
void mnuViewStartPage(frmMain &window) {
    const bool shows = window.MenuValue(QStringLiteral("mnuViewStartPage"));
    SetStartPageEnabled(shows);
    if (shows) window.Start().Offer();
}

void mnuViewLook(frmMain &window) { window.Look().SetShown(window.MenuValue(QStringLiteral("mnuViewLook"))); }

void mnuViewOverview(frmMain &window) {
    Overview::SetEnabled(window.MenuValue(QStringLiteral("mnuViewOverview")));
}

void SelectTab(frmMain &window, int step) {
    const int tab = window.TabStrip().TheTab() + step;
    if (tab >= 0 && tab < window.TabStrip().TabCount()) window.TabStrip().SetTheTab(tab);
}

void keyFont(frmMain &window) { window.cboFont().setFocus(Qt::ShortcutFocusReason); }
void keyFontSize(frmMain &window) { window.cboFontSize().setFocus(Qt::ShortcutFocusReason); }

void keyTemplates(frmMain &window) {
    window.Templates().Pane().SetShown(true);
    window.SetMenuValue(QStringLiteral("mnuViewTemplates"), true);
    window.Templates().RB().setFocus(Qt::ShortcutFocusReason);
}

void keySearch(frmMain &window) { window.Search().Begin(); }

// Where all of the slice is in sight there is none.
void keyOverview(frmMain &window) {
    Overview::SetEnabled(true);
    if (!window.TheOverview().TakeFocus())
        window.Status().TellInPassing(
            settings::ReplaceTerms(frmMain::tr("All of the @SLICE is in sight: it needs no overview.")));
}

void keyLastSlice(frmMain &window) { window.Turns().Turn(1); }
void keyFirstSlice(frmMain &window) { window.Turns().Turn(-1); }
void keyNextSlice(frmMain &window) { SelectTab(window, 1); }
void keyPreviousSlice(frmMain &window) { SelectTab(window, -1); }

constexpr EntryKind kMenu = EntryKind::Menu;
constexpr EntryKind kCommand = EntryKind::Command;
constexpr EntryKind kCheck = EntryKind::Check;

// "mnuViewBackgroun" is the key of that menu, without its last letter.
constexpr CommandRow kRows[] = {
    {"", "mnuView", "&View", kMenu},
    {"mnuView", "mnuViewG", "&Grid", kMenu},
    {"mnuViewG", "mnuViewGrid", "&Grid Lines", kCheck, mnuViewGrid, "grid", "", "Ctrl+G"},
    {"mnuViewG", "mnuViewSnapGrid", "&Snap to Grid", kCheck, mnuViewSnapGrid, "snap", "", "Ctrl+Shift+G"},
    {"mnuView", "mnuViewZoom", "&Zoom", kMenu},
    {"mnuViewZoom", "mnuViewZoom100", "100% (Normal)", kCommand, mnuViewZoom100, "zoom100", "", "Ctrl+0"},
    {"mnuViewZoom", "mnuViewZoom150", "150%", kCommand, mnuViewZoom150},
    {"mnuViewZoom", "mnuViewZoom75", "75%", kCommand, mnuViewZoom75},
    {"mnuViewZoom", "mnuViewZoomFit", "Fit in window", kCommand, mnuViewZoomFit, "zoomfit", "", "Ctrl+9"},
    {"mnuView", "mnuViewTimeline", "&Timeline", kCheck, mnuViewTimeline, "timeline"},
    {"mnuView", "mnuViewBackgroun", "&Background", kMenu},
    {"mnuViewBackgroun", "mnuViewBackgroundColor", "&Color...", kCommand, mnuViewBackgroundColor, "colour"},
    {"mnuViewBackgroun", "mnuViewBackgroundPicture", "&Picture", kCommand, mnuViewBackgroundPicture,
     "picture"},
    Separator("mnuViewBackgroun"),
    {"mnuViewBackgroun", "mnuViewBackgroundClear", "C&lear", kCommand, mnuViewBackgroundClear},
    Separator("mnuView"),
    {"mnuView", "mnuViewDefaultNode", "&Default @NODE...", kCommand, mnuViewDefaultNode, "defaultnode"},
    {"mnuView", "mnuViewTimelineSetup", "&Timeline Setup...", kCommand, mnuViewTimelineSetup,
     "timelinesetup"},
    Separator("mnuView"),
    {"mnuView", "mnuViewLevels", "Level Setup...", kCommand, mnuViewLevels, "levels", "", "", Needs::Nothing,
     false, "The list of levels and their colours"},
    {"mnuView", "mnuViewGroups", "Group Setup...", kCommand, mnuViewGroups, "groups", "", "", Needs::Nothing,
     false, "The list of groups"},
    Separator("mnuView"),
    {"mnuView", "mnuViewStartup", "Show Startup @MAP", kCheck, mnuViewStartup},
    {"mnuView", "mnuViewRBPrompt", "Show RHS Prompt", kCheck, mnuViewRBPrompt},
    Separator("mnuView"),
    {"mnuView", "mnuViewTemplates", "Te&mplates", kCheck, mnuViewTemplates, "", "", "", Needs::Nothing, false,
     "bar pane side hide show"},
    {"mnuView", "mnuViewStartPage", "Show Start Page", kCheck, mnuViewStartPage},
    {"mnuView", "mnuViewOverview", "O&verview", kCheck, mnuViewOverview, "", "", "", Needs::Nothing, false,
     "small picture of the whole @SLICE in a corner"},
    {"mnuView", "mnuViewLook", "Loo&k Bar", kCheck, mnuViewLook, "", "", "", Needs::Nothing, false,
     "toolbar hide show"},
};

// Behind the other zooms.
constexpr CommandRow kZoomRows[] = {
    Separator("mnuViewZoom"),
    {"mnuViewZoom", "keyZoomIn", "Zoom &in", kCommand, keyZoomIn, "zoomin", "", "Ctrl++ Ctrl+="},
    {"mnuViewZoom", "keyZoomOut", "Zoom &out", kCommand, keyZoomOut, "zoomout", "", "Ctrl+-"},
    {"mnuViewZoom", "keyZoomSelection", "Zoom to &selection", kCommand, keyZoomSelection, "zoomselection", "",
     "", Needs::Selection, false, "Shows the selection as large as the window allows"},
};

// At the end of the menu.
constexpr CommandRow kGoRows[] = {
    Separator("mnuView", "mnuViewSepGo"),
    {"mnuView", "mnuViewGo", "G&o to", kMenu},
    {"mnuViewGo", "keyNextSlice", "&Next @SLICE", kCommand, keyNextSlice, "", "", "Ctrl+PgDown"},
    {"mnuViewGo", "keyPreviousSlice", "&Previous @SLICE", kCommand, keyPreviousSlice, "", "", "Ctrl+PgUp"},
    {"mnuViewGo", "keyLastSlice", "@SLICE used &last", kCommand, keyLastSlice, "", "", "Ctrl+Tab"},
    {"mnuViewGo", "keyFirstSlice", "@SLICE used longest &ago", kCommand, keyFirstSlice, "", "",
     "Ctrl+Shift+Tab"},
    Separator("mnuViewGo"),
    {"mnuViewGo", "keyOverview", "&Overview", kCommand, keyOverview, "", "", "", Needs::Nothing, false,
     "small picture of the whole @SLICE, to move the part in sight"},
    {"mnuViewGo", "keySearch", "&Search commands", kCommand, keySearch, "", "", "Ctrl+Shift+P"},
    {"mnuViewGo", "keyTemplates", "Choose a &template", kCommand, keyTemplates, "template", "", "F6"},
    {"mnuViewGo", "keyFont", "&Font", kCommand, keyFont, "", "", "Ctrl+Shift+F"},
    {"mnuViewGo", "keyFontSize", "Font si&ze", kCommand, keyFontSize, "", "", "Ctrl+Alt+F"},
};

} // namespace

std::span<const CommandRow> ViewCommands() { return kRows; }
std::span<const CommandRow> ZoomKeyCommands() { return kZoomRows; }
std::span<const CommandRow> GoCommands() { return kGoRows; }

} // namespace mainwindow
