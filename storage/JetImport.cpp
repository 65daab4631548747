#include "storage/JetImport.h"

#include "storage/EngineError.h"
#include "storage/JetExitCodes.h"
#include "storage/text/FieldTypes.h"
#include "support/Files.h"
#include "support/Platform.h"

#include <algorithm>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Exception.h>

namespace storage {

namespace {

constexpr int kStartMilliseconds = 10000;

// A new temporary file for the copy; goes with this object.
class CopyFile {
public:
    CopyFile() : path_(support::GetTempFile(QStringLiteral("jet"))) {}
    ~CopyFile() { QFile::remove(path_); }
    CopyFile(const CopyFile &) = delete;
    CopyFile &operator=(const CopyFile &) = delete;
    const QString &Path() const { return path_; }

private:
    QString path_;
};

QString ReaderPath() {
    const QString path = support::platform::CompanionProgram(QStringLiteral("velmora-jetread"));
    const QFileInfo file(path);
    if (!file.exists())
        throw EngineError(support::kErrFileNotFound,
                          QStringLiteral("File not found: '%1'").arg(file.fileName()));
    return path;
}

// The exit code of the reader; that of damage when it crashed or took too long.
int RunReader(const QStringList &arguments, int milliseconds) {
    QProcess reader;
    reader.setStandardInputFile(QProcess::nullDevice());
    reader.setStandardOutputFile(QProcess::nullDevice());
    reader.setStandardErrorFile(QProcess::nullDevice());
    reader.start(ReaderPath(), arguments);
    if (!reader.waitForStarted(kStartMilliseconds)) return jet::kExitDamaged;
    if (!reader.waitForFinished(milliseconds)) {
        reader.kill();
        reader.waitForFinished(kStartMilliseconds);
        return jet::kExitDamaged;
    }
    return reader.exitStatus() == QProcess::NormalExit ? reader.exitCode() : jet::kExitDamaged;
}

void RaiseUnlessDone(int code, const QString &path) {
    switch (code) {
    case jet::kExitDone:
        return;
    case jet::kExitNotRecognised:
        throw UnrecognizedFormat(path);
    case jet::kExitNoSpace:
        throw EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."));
    default:
        throw DamagedDatabase(path);
    }
}

std::shared_ptr<Connection> LoadCopy(const QString &copy, const QString &name) {
    auto memory = std::make_shared<Connection>(QStringLiteral(":memory:"),
                                               SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, name);
    Connection file(copy, SQLite::OPEN_READONLY, name);
    try {
        if (SQLite::Backup(memory->Library(), file.Library()).executeStep() != SQLITE_DONE)
            throw DamagedDatabase(name);
    } catch (const SQLite::Exception &error) {
        throw LibraryError(nullptr, error.getErrorCode(), name, QString());
    }
    return memory;
}

int CountTables(Connection &connection) {
    const Statement count =
        connection.Prepare(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type='table'"));
    connection.Check(sqlite3_step(count.get()));
    return sqlite3_column_int(count.get(), 0);
}

// Runs the reader again where it crashed or hung, as long as that gives further tables: each run passes over
// those that the ones before have begun.
void RunSalvage(const QString &path, const QString &copy, int milliseconds) {
    constexpr int kMostRuns = 100;
    const QDeadlineTimer deadline(milliseconds);
    int before = -1;
    for (int run = 0; run < kMostRuns && !deadline.hasExpired(); ++run) {
        const int code = RunReader({QStringLiteral("--salvage"), path, copy},
                                   static_cast<int>(std::max<qint64>(deadline.remainingTime(), 1)));
        if (code != jet::kExitDamaged) {
            RaiseUnlessDone(code, path);
            return;
        }
        Connection file(copy, SQLite::OPEN_READONLY, path);
        const int tables = CountTables(file);
        if (tables <= before) return;
        before = tables;
    }
}

// Takes the table of lost lines out of the copy. A table at which the reader ended has a line there too.
QStringList TakeLines(Connection &copy) {
    const QString table = QuotedName(QString::fromLatin1(jet::kLostTable));
    QStringList lines;
    {
        const Statement rows = copy.Prepare(QStringLiteral("SELECT line FROM %1").arg(table));
        while (sqlite3_step(rows.get()) == SQLITE_ROW)
            lines += QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(rows.get(), 0)));
    }
    copy.Run(QStringLiteral("DROP TABLE %1").arg(table));
    return lines;
}

} // namespace

std::shared_ptr<Connection> SalvageJet(const QString &path, QStringList &lost, int milliseconds) {
    const CopyFile copy;
    RunSalvage(path, copy.Path(), milliseconds);
    auto memory = LoadCopy(copy.Path(), path);
    if (CountTables(*memory) < 2) throw DamagedDatabase(path); // there is none but that of the lost lines
    lost += TakeLines(*memory);
    return memory;
}

std::shared_ptr<Connection> ImportJet(const QString &path, int milliseconds) {
    const CopyFile copy;
    RaiseUnlessDone(RunReader({path, copy.Path()}, milliseconds), path);
    return LoadCopy(copy.Path(), path);
}

} // namespace storage
