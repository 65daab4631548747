// Maps brought in from other files and taken out to them.
#pragma once

#include <QString>

namespace mainwindow {

class frmMain;

// Where the map is saved, under its name with that ending.
QString PlaceBeside(frmMain &window, const QString &ending);

// In the status bar, that the file is there now.
void TellWritten(frmMain &window, const QString &file);

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
