#include "mainwindow/start/OfferSalvage.h"

#include "document/BusyWindow.h"
#include "document/DoLoad.h"
#include "document/RepairMap.h"
#include "mainwindow/frmMain.h"
#include "settings/Settings.h"
#include "storage/Salvage.h"
#include "support/Files.h"
#include "support/FollowUp.h"
#include "support/PrivateFolder.h"

#include <algorithm>
#include <QPointer>

namespace mainwindow {

namespace {

const QString kPurpose = QStringLiteral("salvage"); // of the folder, as storage::SweepSalvageFolders knows it
constexpr qsizetype kMostLines = 20;                // in a message box

constexpr long kErrNoSuchSlot = 340; // of document::SurfaceArray

// Errors of what a file holds, as opposed to those of reaching it.
constexpr long kErrorsOfContent[] = {
    support::kErrInvalidProcedureCall,
    support::kErrOverflow,
    support::kErrSubscriptOutOfRange,
    support::kErrTypeMismatch,
    kErrNoSuchSlot,
    support::kErrAlreadyLoaded,        // a slice twice
    support::kErrInvalidPropertyValue, // out of range
    support::kErrKeyInUse,
    support::kErrInvalidPicture,
    storage::kErrFieldNotFound,
    storage::kErrTableNotFound,
    storage::kErrDamaged,
};

bool IsOfContent(const support::Error &error, const QString &path) {
    if (error.Number() == storage::kErrUnrecognizedFormat) return storage::LostItsFirstPage(path);
    return std::find(std::begin(kErrorsOfContent), std::end(kErrorsOfContent), error.Number()) !=
           std::end(kErrorsOfContent);
}

bool WantsToOpen(support::Desktop &desktop) {
    return desktop.messageBoxes.Show(QStringLiteral("Open what can be read as a new map?"),
                                     support::Buttons::YesNo, support::Icon::Question,
                                     settings::Terms().TITLE,
                                     support::EnterPresses::No) == support::Answer::Yes;
}

// What was changed, as far as a box has room for it.
void TellOfRepairs(support::Desktop &desktop, const document::RepairReport &report) {
    QStringList lines = report.lost;
    for (const document::Repair &repair : report.repairs) lines.append(document::RepairText(repair));
    if (lines.isEmpty()) return;
    const qsizetype more = lines.size() - kMostLines;
    lines = lines.mid(0, kMostLines);
    if (more > 0) lines.append(QStringLiteral("... and %1 more").arg(more));
    desktop.messageBoxes.Show(lines.join(QStringLiteral("\r\n")), support::Buttons::Ok,
                              support::Icon::Information, settings::Terms().TITLE);
}

void OpenWhatCanBeRead(frmMain &window, const QString &path) {
    const support::PrivateFolder folder(kPurpose);
    const QString repaired = support::AddBackslash(folder.Path()) + QStringLiteral("repaired.map");
    document::RepairReport report;
    {
        const document::BusyWindow busy(window);
        window.DoStatus(QStringLiteral("Reading what can be read..."));
        report = document::RepairMap(path, repaired);
        window.DoStatus(QString());
    }
    const bool isTaken = window.WantsNewWindow() || document::MustAskBeforeLosing(window);
    frmMain &target = isTaken ? *new frmMain(window.Desktop()) : window;
    target.ShowWindow();
    document::LoadAsNew(target, repaired, document::UntitledCaption());
    TellOfRepairs(window.Desktop(), report);
}

} // namespace

void LoadOrOffer(frmMain &window, const QString &path, const std::function<void()> &load) {
    try {
        load();
    } catch (const support::Error &error) {
        if (IsOfContent(error, path))
            support::FollowReport(error, [shown = QPointer<frmMain>(&window), path] {
                if (shown && WantsToOpen(shown->Desktop())) OpenWhatCanBeRead(*shown, path);
            });
        throw;
    }
}

} // namespace mainwindow
