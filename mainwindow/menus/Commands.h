// The commands of the window: one row each, in the order of the menu bar. Whoever adds a command adds a row.
#pragma once

#include <QString>
#include <span>
#include <vector>

namespace support {
struct Desktop;
}

namespace mainwindow {

class frmMain;

enum class EntryKind { Menu, Command, Check, Separator };

// What a command needs of the window's state: its entries and buttons are disabled without it.
enum class Needs { Nothing, Undo, Redo, Selection, SelectionOrText, CopiedLook, Printers };

using Routine = void (*)(frmMain &);

struct CommandRow {
    // The key of the menu that holds it, whose row comes before this one. Empty: the menu bar itself; null:
    // no menu, it is reached by its keys only.
    const char *parent;
    const char *key;     // by which the program refers to it; empty for a separator to which nothing does
    const char *caption; // with placeholders of the product terms
    EntryKind kind = EntryKind::Command;
    Routine routine = nullptr;
    const char *image = "";
    const char *accelerator = ""; // a key; empty for none
    const char *keys = "";        // further keys, separated by blanks; the menu shows the first of all keys
    Needs needs = Needs::Nothing;
    bool leavesTextBox = false;  // doesn't end the editing of a text in place
    const char *tip = "";        // more words by which the search finds it
    const char *surfaceKey = ""; // shown as its key, but handled by the surface itself
    bool (*offered)() = nullptr; // whether this edition of the product has the entry; null: always
};

constexpr CommandRow Separator(const char *parent, const char *key = "") {
    return {parent, key, "", EntryKind::Separator};
}

std::span<const CommandRow> FileCommands();
std::span<const CommandRow> EditCommands();
std::span<const CommandRow> ViewCommands();
std::span<const CommandRow> ShapeCommands();
std::span<const CommandRow> LayoutCommands();
std::span<const CommandRow> ArrangeCommands();
std::span<const CommandRow> HelpCommands();
// Behind the others in the menu Edit, in its order.
std::span<const CommandRow> EditKeyCommands();
std::span<const CommandRow> FindCommands();
std::span<const CommandRow> LookCommands();
// The same in the menu View.
std::span<const CommandRow> ZoomKeyCommands();
std::span<const CommandRow> DatesCommands();
std::span<const CommandRow> GoCommands();

// All rows, in the order of these functions.
std::vector<CommandRow> Commands();
// The row of a command that has a routine; null for a key that names none.
const CommandRow *FindCommand(const QString &key);

// The first of the row's keys, as the platform writes it; empty without one.
QString KeysOf(const CommandRow &row);
// "Tip (keys)"; the tip alone without keys.
QString WithKeys(const QString &tip, const QString &keys);

// Tells the user that no command has that key.
void ShowUnknownKey(support::Desktop &desktop, const QString &key);

// The key of a recent file is this and its path.
inline constexpr char kRecentFile[] = "mnuFileMRU|";
// The separator above the recent files.
inline constexpr char kRecentSeparator[] = "mnuFileSepMRU";

// The caption of a recent file: the path when it has at most 25 characters, else "..." and its last 25.
QString RecentFileCaption(const QString &path);

} // namespace mainwindow
