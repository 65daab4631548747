// Maps brought in from other files and taken out to them.
#pragma once

#include <QString>

namespace mainwindow {

class frmMain;

// A path in the folder where the map is saved: its name with that ending, or the folder alone while it has
// none.
QString PlaceBeside(frmMain &window, const QString &ending);

// Says in the status bar that the file was written.
void TellWritten(frmMain &window, const QString &file);

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
