// The commands for the look of what is selected: behind the others in the menu Edit.
#include "mainwindow/menus/Commands.h"

#include "mainwindow/frmMain.h"
#include "mainwindow/slices/LookBar.h"
#include "mainwindow/window/frmPics.h"

namespace mainwindow {

namespace {

const QString kBarEntry = QStringLiteral("mnuViewLook");

void Bold(frmMain &window) { window.tlbFormat_ButtonClick(QStringLiteral("BOLD")); }
void Italic(frmMain &window) { window.tlbFormat_ButtonClick(QStringLiteral("ITALIC")); }
void Underline(frmMain &window) { window.tlbFormat_ButtonClick(QStringLiteral("ULINE")); }
void Left(frmMain &window) { window.tlbFormat_ButtonClick(QStringLiteral("LEFT")); }
void Center(frmMain &window) { window.tlbFormat_ButtonClick(QStringLiteral("CENTER")); }
void Right(frmMain &window) { window.tlbFormat_ButtonClick(QStringLiteral("RIGHT")); }

template <LookOf What>
void Open(frmMain &window) {
    window.Look().Open(What);
}

void CopyLook(frmMain &window) { frmPics::Shared().Look().Copy(window.CurrentSurface()); }

void PasteLook(frmMain &window) {
    if (frmPics::Shared().Look().Paste(window.CurrentSurface())) window.clsSettings().Dirty = true;
}

void GoToBar(frmMain &window) {
    window.Look().SetShown(true);
    window.SetMenuValue(kBarEntry, true);
    window.Look().TakeFocus();
}

constexpr EntryKind kMenu = EntryKind::Menu;
constexpr EntryKind kCommand = EntryKind::Command;

constexpr CommandRow OpenRow(const char *key, const char *caption, Routine open, const char *image,
                             const char *tip) {
    return {"mnuEditLook", key, caption, kCommand, open, image, "", "", Needs::Nothing, true, tip};
}

constexpr CommandRow FormatRowOf(const char *key, const char *caption, Routine format, const char *image,
                                 const char *keys, const char *tip) {
    return {"mnuEditLook", key, caption, kCommand, format, image, "", keys, Needs::Selection, true, tip};
}

// The keys of the rows that open a popup are those of the buttons of the look bar, which enables them.
constexpr CommandRow kRows[] = {
    Separator("mnuEdit"),
    {"mnuEdit", "mnuEditLook", "&Look", kMenu},
    FormatRowOf("mnuEditLookBold", "&Bold", Bold, "bold", "Ctrl+B", "Format font"),
    FormatRowOf("mnuEditLookItalic", "&Italic", Italic, "italic", "Ctrl+I", "Format font"),
    FormatRowOf("mnuEditLookUnderline", "&Underline", Underline, "uline", "Ctrl+U", "Format font"),
    Separator("mnuEditLook"),
    FormatRowOf("mnuEditLookLeft", "Text L&eft", Left, "left", "", "Format align"),
    FormatRowOf("mnuEditLookCenter", "Text &Center", Center, "center", "", "Format align centre"),
    FormatRowOf("mnuEditLookRight", "Text &Right", Right, "right", "", "Format align"),
    Separator("mnuEditLook"),
    OpenRow("lookFill", "&Fill...", Open<LookOf::Fill>, "lookfill", "colour color background"),
    OpenRow("lookLineColour", "&Line Colour...", Open<LookOf::LineColour>, "lookline", "color border"),
    OpenRow("lookLineWidth", "Line &Width...", Open<LookOf::LineWidth>, "lookwidth", "border thick thin"),
    OpenRow("lookLineStyle", "Line &Style...", Open<LookOf::LineStyle>, "lookstyle", "border dash dot"),
    OpenRow("lookTextColour", "&Text Colour...", Open<LookOf::TextColour>, "looktext", "color font"),
    OpenRow("lookShadow", "Sha&dow...", Open<LookOf::Shadow>, "lookshadow", ""),
    OpenRow("lookShape", "S&hape...", Open<LookOf::Shape>, "lookshape", "form"),
    Separator("mnuEditLook"),
    OpenRow("lookRouting", "R&outing...", Open<LookOf::Routing>, "lookrouting", "@LINK style way"),
    OpenRow("lookArrowStart", "&Arrow at the Start...", Open<LookOf::ArrowStart>, "lookarrowstart",
            "@LINK head origin"),
    OpenRow("lookArrowEnd", "Arrow at the E&nd...", Open<LookOf::ArrowEnd>, "lookarrowend",
            "@LINK head destination"),
    OpenRow("lookJumps", "&Jumps...", Open<LookOf::Jumps>, "lookjumps", "@LINK cross arch"),
    Separator("mnuEditLook"),
    {"mnuEditLook", "mnuEditLookCopy", "Cop&y Look", kCommand, CopyLook, "lookcopy", "", "Ctrl+Alt+C",
     Needs::Selection, true, "format painter style"},
    {"mnuEditLook", "mnuEditLookPaste", "&Paste Look", kCommand, PasteLook, "lookpaste", "", "Ctrl+Alt+V",
     Needs::CopiedLook, true, "format painter style"},
    Separator("mnuEditLook"),
    {"mnuEditLook", "keyLook", "&Go to the Look Bar", kCommand, GoToBar, "", "", "F8"},
};

} // namespace

std::span<const CommandRow> LookCommands() { return kRows; }

} // namespace mainwindow
