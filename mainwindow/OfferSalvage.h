// What can be read of a map that doesn't open.
#pragma once

#include <functional>
#include <QString>

namespace mainwindow {

class frmMain;

// Runs `load`, which reads the file into the window. Where it fails for what the file holds, the user is
// asked behind the error whether to open what can be read of it as a new map: in this window, or in a new one
// where this one holds something. The error is raised all the same.
void LoadOrOffer(frmMain &window, const QString &path, const std::function<void()> &load);

} // namespace mainwindow
