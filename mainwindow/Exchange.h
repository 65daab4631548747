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
    // Makes a surface file fit the levels and groups of the map that it is to be loaded into.
    std::function<void(diagram::Surface &flow, const QString &file)> PrepFileForImport;
};

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
