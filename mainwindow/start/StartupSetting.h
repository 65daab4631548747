// What is offered at the start.
#pragma once

namespace mainwindow {

// Saves the setting and ticks or clears mnuViewStartup in all main windows.
void SetStartupEnabled(bool on);
// The same with mnuViewStartPage, and with the box on the start pages that are shown.
void SetStartPageEnabled(bool on);

} // namespace mainwindow
