// The commands of the palette of shapes.
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/slices/ShapePalette.h"

namespace mainwindow {

namespace {

void mnuViewShapes(frmMain &window) {
    window.Shapes().SetStripShown(window.MenuValue(QStringLiteral("mnuViewShapes")));
}

void keyShapes(frmMain &window) { window.Shapes().PopUp(); }

constexpr CommandRow kRows[] = {
    Separator("mnuView"),
    {"mnuView", "mnuViewShapes", "S&hapes", EntryKind::Check, mnuViewShapes, "", "", "", Needs::Nothing,
     false, "palette strip side bar hide show"},
    {"mnuView", "keyShapes", "Choose a Shap&e...", EntryKind::Command, keyShapes, "shapes", "", "F7",
     Needs::Nothing, false, "The shape of the @NODEs that are drawn next: palette"},
};

} // namespace

std::span<const CommandRow> ShapeCommands() { return kRows; }

} // namespace mainwindow
