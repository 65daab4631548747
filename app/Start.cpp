#include "app/Start.h"

#include "app/frmPrompt.h"
#include "document/AttachmentFolder.h"
#include "document/CompactDb.h"
#include "document/RepairMap.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/StartupSetting.h"
#include "mainwindow/start/Thumbnails.h"
#include "mainwindow/start/WindowJournal.h"
#include "recovery/LostMaps.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "support/Files.h"

#include <chrono>
#include <cmath>
#include <QCoreApplication>
#include <QTimer>

namespace app {

using mainwindow::frmMain;

namespace {

constexpr int kSplashStep = 20; // milliseconds
constexpr std::chrono::seconds kSweepWait{2};

void ShowSplash() {
    auto *splash = new mainwindow::frmSplash(settings::ReadTitle()); // goes with frmSplash::Unload
    splash->show();
    QCoreApplication::processEvents();
}

// Waits until the second after the one in which the splash came is reached, or midnight.
void WaitForSplash(support::Clock &clock, double since) {
    const double started = clock.Timer();
    while (clock.Timer() < since + 1 && clock.Timer() >= started) clock.Wait(kSplashStep);
}

// Removes what former runs left in the temporary folder. A little later, as that folder can be full of other
// things and the window must not wait for it.
void SweepTemporaryFiles(frmMain &first) {
    QTimer::singleShot(kSweepWait, &first, [&clock = first.Desktop().clock] {
        document::SweepAttachmentFolders();
        document::SweepRepairFolders();
        document::SweepSafetyCopies(clock.Now());
    });
}

frmMain *FirstWindow(support::Desktop &desktop, const StartOptions &options) {
    settings::SetMemoryLimit(settings::kFirstMemoryLimit);
    desktop.random.Seed(desktop.clock.Timer());
    if (options.showSplash) ShowSplash();
    const double noted = std::floor(desktop.clock.Timer());
    settings::LoadSettings();
    mainwindow::WindowJournal::SetFolder(options.keepJournals ? recovery::JournalsFolder() : QString());
    mainwindow::ThumbnailCache::SetFolder(options.keepPreviews ? mainwindow::ThumbnailCache::UsualFolder()
                                                               : QString());
    auto *first = new frmMain(desktop); // deletes itself when it is closed
    if (options.showSplash) WaitForSplash(desktop.clock, noted);
    first->ShowWindow();
    mainwindow::frmSplash::Unload();
    SweepTemporaryFiles(*first);
    return first;
}

} // namespace

frmMain *Main(support::Desktop &desktop, const StartOptions &options) {
    frmMain *first = nullptr;
    support::Report("Qz_Source", "Main", [&] { first = FirstWindow(desktop, options); });
    if (!first) {
        mainwindow::frmSplash::Unload();
        return nullptr;
    }
    if (options.keepJournals) OfferLostMaps(*first);
    ProcessCommand(*first, options.commandLine);
    if (options.offerStartup) ProcessStartup(*first, options.commandLine);
    return first;
}

void OfferLostMaps(frmMain &first) {
    support::Report("Qz_Source", "OfferLostMaps",
                    [&] { first.LostMaps().Add(recovery::FindLostMaps(recovery::JournalsFolder())); });
}

void ProcessCommand(frmMain &first, const QString &commandLine) {
    support::Report("Qz_Source", "ProcessCommand", [&] {
        const QString path = PathInCommandLine(commandLine);
        if (!path.isEmpty() && support::FileExists(path)) first.DoOpen(path, first.clsSettings().Dirty);
    });
}

void ProcessStartup(frmMain &first, const QString &commandLine) {
    support::Report("Qz_Source", "ProcessStartup", [&] {
        if (commandLine.isEmpty() && settings::GetStartupEnabled()) {
            mainwindow::SetStartupEnabled(true);
            const QString map = StartupMap();
            if (!map.isEmpty() && AskToOpen(first.Desktop(), support::FileTitle(map), &first))
                first.DoOpen(map, false);
        }
        for (frmMain *form : frmMain::Forms())
            form->SetMenuValue(QStringLiteral("mnuViewRBPrompt"), form->RHSPrompt());
    });
}

QString PathInCommandLine(QString commandLine) {
    if (commandLine.endsWith(u'"')) commandLine.chop(1);
    if (commandLine.startsWith(u'"')) commandLine.remove(0, 1);
    return commandLine;
}

QString StartupMap() {
    const QString folder =
        support::AddBackslash(support::AddBackslash(support::ProgramPath()) + QStringLiteral("Startup"));
    const QStringList maps = support::GetFiles(folder + QStringLiteral("*.") + settings::Terms().EXT,
                                               support::fileattributes::kNormal);
    return maps.isEmpty() ? QString() : folder + maps.first();
}

} // namespace app
