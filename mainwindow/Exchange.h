// Maps brought in from other files and taken out to them.
#pragma once

namespace mainwindow {

class frmMain;

void mnuFileImport(frmMain &window);
void mnuFileExport(frmMain &window);
void mnuFileExportPicture(frmMain &window);

} // namespace mainwindow
