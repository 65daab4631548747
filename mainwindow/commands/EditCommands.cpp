// The menu Edit, but for Find (Finder.cpp) and Look (LookCommands.cpp).
#include "mainwindow/menus/Commands.h"

#include "diagram/edit/History.h"
#include "diagram/view/KeyCodes.h"
#include "diagram/view/PictureMime.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "mainwindow/controls/TextBox.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/PutBack.h"
#include "mainwindow/slices/UndoRedo.h"
#include "settings/Settings.h"

namespace mainwindow {

namespace {

void mnuEditUndo(frmMain &window) { window.History().Undo(); }
void mnuEditRedo(frmMain &window) { window.History().Redo(); }

// True when a text box had the focus and took the command; else the surface has the focus now.
bool TextBoxTook(frmMain &window, TextCommand command) {
    if (QWidget *box = FocusedTextBox()) {
        SendToTextBox(*box, command);
        return true;
    }
    window.CurrentView().setFocus();
    return false;
}

// A copy turns the display of both texts off.
bool CopySelection(frmMain &window) {
    if (window.DisplayPressed()) window.ClickFormatButton(QStringLiteral("DISPLAY"));
    return window.CurrentView().Copy();
}

void mnuEditCut(frmMain &window) {
    if (TextBoxTook(window, TextCommand::Cut)) return;
    if (CopySelection(window)) window.CurrentView().DeleteSelection();
}

void mnuEditCopy(frmMain &window) {
    if (TextBoxTook(window, TextCommand::Copy)) return;
    CopySelection(window);
}

// The new keys belong to the same step of undo as the nodes that they are given to.
void mnuEditPaste(frmMain &window) {
    if (TextBoxTook(window, TextCommand::Paste)) return;
    diagram::Surface &surface = window.CurrentSurface();
    const diagram::ActionGroup group(surface);
    DoSelectAll(surface, false);
    if (window.CurrentView().Paste()) document::ChangeGUIDs(surface, true);
}

void mnuEditDelete(frmMain &window) {
    if (TextBoxTook(window, TextCommand::Delete)) return;
    int keyCode = diagram::VirtualKey(Qt::Key_Delete);
    window.AddFlow1_KeyDown(window.CurrentSurface().Index(), keyCode, 0);
}

void mnuEditCopyClipboard(frmMain &window) { diagram::PictureToClipboard(window.CurrentSurface()); }

void mnuEditSelectAll(frmMain &window) { DoSelectAll(window.CurrentSurface(), true); }
void mnuEditUnSelectAll(frmMain &window) { DoSelectAll(window.CurrentSurface(), false); }

void mnuEditSlicesInsert(frmMain &window) { window.DoInsertSlice(); }
void mnuEditSlicesDelete(frmMain &window) { window.DoDeleteSlice(); }
void mnuEditSlicesRename(frmMain &window) { window.DoRenameSlice(); }
void mnuEditSlicesSlices(frmMain &window) { window.DoEditSlices(); }

void mnuEditProperties(frmMain &window) {
    constexpr float kPlace = 10; // twips, where the popup of a timeline node opens
    const diagram::Surface &surface = window.CurrentSurface();
    if (diagram::Node *node = surface.SelectedNode())
        window.ShowNodeProperties(*node, kPlace, kPlace);
    else if (diagram::Link *link = surface.SelectedLink())
        window.ShowLinkProperties(*link);
    else
        window.Desktop().messageBoxes.Show(QStringLiteral("Please select a node or a link."),
                                           support::Buttons::Ok, support::Icon::Information,
                                           settings::Terms().TITLE);
}

void keyDuplicate(frmMain &window) {
    diagram::Surface &surface = window.CurrentSurface();
    const diagram::ActionGroup group(surface);
    if (!window.CurrentView().Duplicate()) return;
    document::ChangeGUIDs(surface, true);
    window.clsSettings().Dirty = true;
}

void keyEditText(frmMain &window) {
    window.CurrentView().setFocus();
    window.CurrentView().BeginEdit();
}

void AddKin(frmMain &window, diagram::Kin kin) {
    window.CurrentView().setFocus();
    window.CurrentView().AddKin(kin);
}
void keyAddChild(frmMain &window) { AddKin(window, diagram::Kin::Child); }
void keyAddSibling(frmMain &window) { AddKin(window, diagram::Kin::Sibling); }

void BeginLink(frmMain &window, bool backwards) {
    window.CurrentView().setFocus();
    window.CurrentView().BeginLink(backwards);
}
void keyLinkTo(frmMain &window) { BeginLink(window, false); }
void keyLinkFrom(frmMain &window) { BeginLink(window, true); }
void keyBend(frmMain &window) {
    window.CurrentView().setFocus();
    window.CurrentView().BeginBend();
}

constexpr EntryKind kMenu = EntryKind::Menu;
constexpr EntryKind kCommand = EntryKind::Command;

constexpr CommandRow kRows[] = {
    {"", "mnuEdit", "&Edit", kMenu},
    {"mnuEdit", "mnuEditUndo", "&Undo", kCommand, mnuEditUndo, "undo", "", "Ctrl+Z", Needs::Undo},
    {"mnuEdit", "mnuEditRedo", "&Redo", kCommand, mnuEditRedo, "redo", "", "Ctrl+Y Ctrl+Shift+Z",
     Needs::Redo},
    Separator("mnuEdit", "mnuEditSep1"),
    {"mnuEdit", "mnuEditCut", "Cu&t", kCommand, mnuEditCut, "cut", "", "Ctrl+X", Needs::SelectionOrText,
     true},
    {"mnuEdit", "mnuEditCopy", "&Copy", kCommand, mnuEditCopy, "copy", "", "Ctrl+C", Needs::SelectionOrText,
     true},
    {"mnuEdit", "mnuEditPaste", "&Paste", kCommand, mnuEditPaste, "paste", "", "Ctrl+V", Needs::Nothing,
     true},
    Separator("mnuEdit"),
    {"mnuEdit", "mnuEditCopyClipboard", "&Copy to clipboard", kCommand, mnuEditCopyClipboard, "picture"},
    Separator("mnuEdit"),
    {"mnuEdit", "mnuEditSlices", "@SLICE", kMenu},
    {"mnuEditSlices", "mnuEditSlicesInsert", "&Insert", kCommand, mnuEditSlicesInsert},
    {"mnuEditSlices", "mnuEditSlicesDelete", "&Delete", kCommand, mnuEditSlicesDelete},
    {"mnuEditSlices", "mnuEditSlicesRename", "&Rename", kCommand, mnuEditSlicesRename},
    Separator("mnuEditSlices", "mnuEditSlicesSep1"),
    {"mnuEditSlices", "mnuEditSlicesSlices", "&Edit...", kCommand, mnuEditSlicesSlices},
    Separator("mnuEdit"),
    {"mnuEdit", "mnuEditSelectAll", "&Select All", kCommand, mnuEditSelectAll, "selectall", "Ctrl+A"},
    {"mnuEdit", "mnuEditUnSelectAll", "&UnSelect All", kCommand, mnuEditUnSelectAll, "", "", "Ctrl+Shift+A"},
    Separator("mnuEdit"),
    {"mnuEdit", "mnuEditProperties", "Properties...", kCommand, mnuEditProperties, "", "", "F4"},
};

// Behind all others. Where a text box has the focus, these keys are its own.
constexpr CommandRow kKeyRows[] = {
    Separator("mnuEdit"),
    {"mnuEdit", "mnuEditDelete", "&Delete", kCommand, mnuEditDelete, "delete", "", "", Needs::SelectionOrText,
     true, "Removes the selection", "Del"},
    {"mnuEdit", "keyDuplicate", "Dup&licate", kCommand, keyDuplicate, "copy", "", "Ctrl+D", Needs::Selection,
     false, "Copies the selection beside itself"},
    {"mnuEdit", "keyEditText", "&Edit text", kCommand, keyEditText, "", "", "", Needs::Selection, false,
     "Types into the selected @NODE or @LINK", "F2"},
    {"mnuEdit", "keyAddChild", "Add a linked @NODE", kCommand, keyAddChild, "", "", "", Needs::Nothing, false,
     "A child of the selected @NODE, as its tree grows", "Ins"},
    {"mnuEdit", "keyAddSibling", "Add a sibling @NODE", kCommand, keyAddSibling, "", "", "", Needs::Nothing,
     false, "Beside the selected @NODE, linked from the same one", "Alt+Ins"},
    {"mnuEdit", "mnuEditLinks", "@LINKs by keyboard", kMenu},
    {"mnuEditLinks", "keyLinkTo", "Link &to another @NODE", kCommand, keyLinkTo, "", "", "", Needs::Selection,
     false, "Links the selected @NODE, or joins the end of the selected @LINK elsewhere, by keyboard",
     "Ctrl+L"},
    {"mnuEditLinks", "keyLinkFrom", "Link &from another @NODE", kCommand, keyLinkFrom, "", "", "",
     Needs::Selection, false, "The same for the start of a @LINK", "Ctrl+Shift+L"},
    {"mnuEditLinks", "keyBend", "&Bend the @LINK", kCommand, keyBend, "", "", "", Needs::Selection, false,
     "Moves the bends of the selected @LINK by keyboard", "Ctrl+Shift+B"},
    Separator("mnuEdit", "mnuEditSepFind"),
};

} // namespace

std::span<const CommandRow> EditCommands() { return kRows; }
std::span<const CommandRow> EditKeyCommands() { return kKeyRows; }

} // namespace mainwindow
