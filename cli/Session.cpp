#include "cli/Session.h"

#include "diagram/model/ScreenValues.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/OpenMap.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/OtherDoor.h"
#include "support/PrivateFolder.h"
#include "timeline/CalendarOfStrip.h"

#include <QDir>

namespace cli {

namespace {
const QString kPurpose = QStringLiteral("cli");
}

// A folder that serves as the temporary folder of the process while it lives.
class Session::ScratchFolder {
public:
    ScratchFolder() {
        support::SweepPrivateFolders(kPurpose); // those of commands that were killed
        for (Variable &variable : variables_) {
            variable.former = qgetenv(variable.name);
            qputenv(variable.name, QFile::encodeName(QDir::fromNativeSeparators(folder_.Path())));
        }
    }
    ~ScratchFolder() {
        for (const Variable &variable : variables_) {
            if (variable.former.isNull())
                qunsetenv(variable.name);
            else
                qputenv(variable.name, variable.former);
        }
    }
    ScratchFolder(const ScratchFolder &) = delete;
    ScratchFolder &operator=(const ScratchFolder &) = delete;

private:
    struct Variable {
        const char *name;
        QByteArray former;
    };
    support::PrivateFolder folder_{kPurpose};
    Variable variables_[2] = {{"TMPDIR", {}}, {"TMP", {}}};
};

Session::Session()
    : scratch_(std::make_unique<ScratchFolder>()),
      headless_(std::make_unique<support::MemoryRegistryStore>()),
      desktop_(support::WithDoor(support::WithDoor(headless_.Get(), boxes_), memory_)),
      window_(desktop_, document::EmptyPools()) {
    support::SetDesktop(&desktop_);
    diagram::SetCalendarSource(timeline::CalendarOfStrip, timeline::IsBar);
}

Session::~Session() { support::SetDesktop(&headless_.Get()); }

QString Session::ScratchFile() { return QDir::tempPath() + QStringLiteral("/map%1.map").arg(++files_); }

QString Session::CopyOf(const QString &path) {
    QString copy = ScratchFile();
    support::CopyFileTo(path, copy);
    return copy;
}

document::MemoryWindow &Session::Open(const QString &path) {
    document::clsfrmMain &settings = window_.clsSettings();
    const bool isOld = document::IsOldMap(path);
    settings.SetDatabase(isOld ? CopyOf(path) : path);
    document::DoLoad(window_);
    if (isOld) {
        settings.SetDatabase(path);
        settings.OwnFiles().Add(settings.Database());
    }
    return window_;
}

void Session::Save(QTextStream &out) {
    document::DoSave(window_);
    if (const QString status = window_.statuses.last(); !status.isEmpty()) out << status << "\n";
}

void Session::SaveAs(const QString &path, QTextStream &out) {
    window_.clsSettings().SetDatabase(path);
    Save(out);
}

void ShowOnly(document::MapWindow &window, const output::FilterChoice &choice, QTextStream &out) {
    const QStringList missing = output::ShowOnly(window, choice);
    if (!missing.isEmpty())
        out << QStringLiteral("the view '%1' ticks what the map has no more: %2\n")
                   .arg(choice.view, missing.join(QLatin1String(", ")));
}

void GiveSize(diagram::Surface &slice) {
    constexpr float kWidth = 15000, kHeight = 10000; // twips
    const QRectF extent = slice.Extent();
    slice.Screen().SetSize(std::max(kWidth, float(extent.right())),
                           std::max(kHeight, float(extent.bottom())));
}

diagram::Surface &SliceOf(document::MapWindow &window, int number) {
    const std::vector<int> slices = window.AddFlow1().Indices();
    if (number > int(slices.size()))
        throw support::Error(
            support::kErrSubscriptOutOfRange, QStringLiteral("velmora-cli"),
            QStringLiteral("Slice %1 does not exist; the map has %2").arg(number).arg(slices.size()));
    window.TabStrip().SetTheTab(number - 1);
    return window.AddFlow1()[slices[std::size_t(number - 1)]];
}

} // namespace cli
