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

// What of the window's state a command needs; its entries are disabled without it.
enum class Needs { Nothing, Undo, Redo, Selection, SelectionOrText, CopiedLook, Printers };

using Routine = void (*)(frmMain &);

struct CommandRow {
    // Key of the menu that holds it, which stands in a row above; empty: the menu bar; null: in no menu,
    // reached by its keys.
    const char *parent;
    const char *key;     // identity; empty for separators that nobody names
    const char *caption; // with placeholders of the product terms
    EntryKind kind = EntryKind::Command;
    Routine routine = nullptr;
    const char *image = "";
    const char *accelerator = ""; // written beside the caption
    const char *keys = "";        // further keys, separated by blanks; the first key of all is shown
    Needs needs = Needs::Nothing;
    bool leavesTextBox = false;  // a text that is being typed stays open
    const char *tip = "";        // more words by which the search finds it
    const char *surfaceKey = ""; // a key that the surface itself acts on; it is only shown
    bool (*offered)() = nullptr; // whether this edition of the product has its entry; null: always
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
// Behind the others in the menus Edit and View.
std::span<const CommandRow> EditKeyCommands();
std::span<const CommandRow> FindCommands();
std::span<const CommandRow> LookCommands();
std::span<const CommandRow> KeyCommands();

// All of them in that order.
std::vector<CommandRow> Commands();
// The row of a command that has a routine; null for a key that names none.
const CommandRow *FindCommand(const QString &key);

// The first of the row's keys, as the platform writes it; empty without one.
QString KeysOf(const CommandRow &row);
// The tip with those keys behind it.
QString WithKeys(const QString &tip, const QString &keys);

// Tells that no command has that key.
void ShowUnknownKey(support::Desktop &desktop, const QString &key);

// In front of the path in the key of a recent file.
inline constexpr char kRecentFile[] = "mnuFileMRU|";
// The separator above the recent files.
inline constexpr char kRecentSeparator[] = "mnuFileSepMRU";

// The caption of a recent file: the path when it has at most 25 characters, else "..." and its last 25.
QString RecentFileCaption(const QString &path);

} // namespace mainwindow
