#include "storage/JetImport.h"

#include "storage/EngineError.h"
#include "storage/jet/ExitCodes.h"
#include "support/Files.h"
#include "support/Platform.h"

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
    const QString folder = QFileInfo(support::platform::ExecutablePath()).absolutePath();
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("velmora-jetread.exe");
#else
    const QString name = QStringLiteral("velmora-jetread");
#endif
    const QString path = folder + QLatin1Char('/') + name;
    if (!QFileInfo::exists(path))
        throw EngineError(support::kErrFileNotFound, QStringLiteral("File not found: '%1'").arg(name));
    return path;
}

// The exit code of the reader; that of damage when it crashed or took too long.
int RunReader(const QString &path, const QString &copy, int milliseconds) {
    QProcess reader;
    reader.setStandardInputFile(QProcess::nullDevice());
    reader.setStandardOutputFile(QProcess::nullDevice());
    reader.setStandardErrorFile(QProcess::nullDevice());
    reader.start(ReaderPath(), {path, copy});
    if (!reader.waitForStarted(kStartMilliseconds)) return jet::kExitDamaged;
    if (!reader.waitForFinished(milliseconds)) {
        reader.kill();
        reader.waitForFinished(kStartMilliseconds);
        return jet::kExitDamaged;
    }
    return reader.exitStatus() == QProcess::NormalExit ? reader.exitCode() : jet::kExitDamaged;
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

} // namespace

std::shared_ptr<Connection> ImportJet(const QString &path, int milliseconds) {
    const CopyFile copy;
    switch (RunReader(path, copy.Path(), milliseconds)) {
    case jet::kExitDone:
        return LoadCopy(copy.Path(), path);
    case jet::kExitNotRecognised:
        throw UnrecognizedFormat(path);
    case jet::kExitNoSpace:
        throw EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."));
    default:
        throw DamagedDatabase(path);
    }
}

} // namespace storage
