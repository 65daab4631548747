// Modal dialogs that may come at any moment: they must neither wait unseen behind a window nor leave the
// keyboard to one.
#pragma once

class QDialog;
class QWidget;

namespace support {

// The window that such a dialog belongs to: the active one, else one that is seen, splash windows aside; null
// without any.
QWidget *WindowInFront();

// Runs the dialog above all other windows of the program, with the keyboard: whatever window is given the
// keyboard meanwhile, by a window manager that shows it late, hands it back. A splash window is hidden
// meanwhile. Gives what QDialog::exec does.
int ExecInFront(QDialog &dialog);

} // namespace support
