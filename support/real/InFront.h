// Dialogs that tell or ask in the middle of anything: what they say must not wait unseen, nor Enter go
// elsewhere.
#pragma once

class QDialog;
class QWidget;

namespace support {

// The window that such a dialog belongs to: the active one, else one that is seen, splash windows aside; null
// without any.
QWidget *WindowInFront();

// Runs the dialog above all other windows of the program, with the keyboard: whatever window is given the
// keyboard meanwhile, by a window manager that shows it late, hands it back. A splash window is hidden as
// long. What QDialog::exec gives.
int ExecInFront(QDialog &dialog);

} // namespace support
