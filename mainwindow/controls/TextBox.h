// The text box that has the keyboard focus, for the commands that serve texts as well as nodes.
#pragma once

class QWidget;

namespace mainwindow {

// The line edit or text edit that has the keyboard focus, the field of a combo box too; null when something
// else has it.
QWidget *FocusedTextBox();

enum class TextCommand { Cut, Copy, Paste, Delete };
void SendToTextBox(QWidget &box, TextCommand command);

} // namespace mainwindow
