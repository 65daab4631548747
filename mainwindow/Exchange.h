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
    // Adds the map in the file to the window's map.
    std::function<void(frmMain &window, const QString &file)> DoImportMap;
    // Reads and writes a file of comma-separated values.
    std::function<void(diagram::Surface &flow, const QString &file)> ImportMap, ExportMap;
    // Writes a report, as rich text or HTML by the ending of the file.
    std::function<void(diagram::Surface &flow, const QString &file)> clsExport;
};

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
