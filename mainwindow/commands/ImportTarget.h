// Where an import puts what it reads.
#pragma once

#include <functional>

namespace diagram {
class Surface;
}

namespace mainwindow {

class frmMain;

// Reads a file into the surface. False when it was given up.
using Reading = std::function<bool(diagram::Surface &flow)>;

// Asks whether to replace the current slice or to make a new one, and reads into that. Where the user
// cancels, and where reading is given up or fails, the map stays as it was; errors are raised.
void ReadWhereAsked(frmMain &window, const Reading &read);

} // namespace mainwindow
