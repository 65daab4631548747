// Maps brought in from other files and taken out to them. What does the work is reached by these names.
#pragma once

#include <functional>
#include <QString>

namespace diagram {
class Surface;
}

namespace mainwindow {

class frmMain;

// A routine that is not there is empty; its command says so then and changes nothing.
struct ExchangeRoutines {
    // Writes a report, as rich text or HTML by the ending of the file.
    std::function<void(diagram::Surface &flow, const QString &file)> clsExport;
};

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
