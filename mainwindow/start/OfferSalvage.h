// What can be read of a map that doesn't open.
#pragma once

#include <functional>
#include <QString>

namespace mainwindow {

class frmMain;

// Runs `load`, which reads the file into the window. Its errors are raised again. For one of what the file
// holds the user is asked, once the error was shown, whether to open what can be read of it as a new map: in
// this window, or in a new one where this one holds something.
void LoadOrOffer(frmMain &window, const QString &path, const std::function<void()> &load);

} // namespace mainwindow
