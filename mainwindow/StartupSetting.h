// Whether the start-up map is offered.
#pragma once

namespace mainwindow {

// Saves the setting and ticks or clears mnuViewStartup in all main windows.
void SetStartupEnabled(bool on);

} // namespace mainwindow
