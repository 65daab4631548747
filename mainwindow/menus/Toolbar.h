// A toolbar whose buttons are reached by their keys.
#pragma once

#include "mainwindow/menus/Commands.h"

#include <QHash>
#include <QToolBar>
#include <span>

class QAction;

namespace mainwindow {

enum class Shared;
enum class ButtonStyle { Push, Check, DropDown, Separator };

struct ButtonRow {
    const char *key;
    const char *tag; // its image; a button whose tag has one character or none has no image
    const char *tip; // with placeholders of the product terms
    ButtonStyle style = ButtonStyle::Push;
    Needs needs = Needs::Nothing;
    const char *command = ""; // the key of the command that does the same
    bool showsState = false;  // of the selection, as a StateButton
};

std::span<const ButtonRow> MainButtons();   // tlbMain
std::span<const ButtonRow> FormatButtons(); // tlbFormat
// The tip of the button of tlbMain that runs the command; empty when none does.
QString TipOfMainButton(const QString &command);
// The keys of the commands that tlbView shows; an empty one is a separator.
std::span<const char *const> ViewButtons();

class Toolbar : public QToolBar {
    Q_OBJECT
public:
    Toolbar(const QString &name, const QString &title, QWidget *parent);

    void AddButtons(std::span<const ButtonRow> rows);
    // The button with that key; null for a key that names none.
    QAction *Button(const QString &key) const { return buttons_.value(key); }
    void SetEnabled(Needs needs, bool enabled);
    // Of a button that shows a state.
    void ShowState(const QString &key, Shared state);

Q_SIGNALS:
    void ButtonClick(const QString &key);
    // An entry of the menu of a drop-down button, with the entry's tag.
    void ButtonMenuClick(int tag);

private:
    void AddButton(const ButtonRow &row);
    void AddDropDown(QAction &button);

    QHash<QString, QAction *> buttons_;
    QMultiHash<int, QAction *> needing_; // by what they need
};

} // namespace mainwindow
