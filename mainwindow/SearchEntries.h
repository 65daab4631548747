// What the search for commands finds in a window.
#pragma once

#include "mainwindow/menus/CommandSearch.h"

#include <vector>

namespace mainwindow {

class frmMain;
class SmartMenu;
class Toolbar;

// The commands of the menus and keys, the buttons of the format bar, and a new element of each shape. They
// run as if they were chosen there.
std::vector<SearchEntry> SearchEntries(frmMain &window, SmartMenu &menu, Toolbar &format);

} // namespace mainwindow
