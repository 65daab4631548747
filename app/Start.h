// From the start of the process to the event loop.
#pragma once

#include "support/Desktop.h"

#include <QString>

namespace mainwindow {
class frmMain;
}

namespace app {

struct StartOptions {
    QString commandLine;       // all of it, without the program's name
    bool showSplash = true;    // until the next whole second at least
    bool offerStartup = true;  // the map of the folder Startup
    bool keepJournals = false; // of what isn't saved, and offer what former runs have left
    bool keepPreviews = false; // of recent maps and templates, for later starts
};

// Seeds the random generator, shows the splash, reads Settings.nml, opens and shows the first window, then
// handles the command line and the start-up map. Errors are reported. Gives the first window; null when it
// couldn't be made, which the user has been told.
mainwindow::frmMain *Main(support::Desktop &desktop, const StartOptions &options);

// Offers the maps that former runs left unsaved.
void OfferLostMaps(mainwindow::frmMain &first);
// Opens the file that the command line names in `first`. The whole line is one path, with or without double
// quotes; one of no file is ignored.
void ProcessCommand(mainwindow::frmMain &first, const QString &commandLine);
// Without a command line: offers the first map of the folder Startup, unless the user turned that off. Then
// ticks or clears mnuViewRBPrompt in all windows.
void ProcessStartup(mainwindow::frmMain &first, const QString &commandLine);

// The path in a command line: one double quote taken off its end and one off its beginning.
QString PathInCommandLine(QString commandLine);
// The first map in the folder Startup beside the executable, full path; empty without one.
QString StartupMap();

} // namespace app
