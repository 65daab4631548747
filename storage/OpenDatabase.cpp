#include "storage/DatabaseState.h"
#include "storage/EngineError.h"
#include "storage/FileForm.h"
#include "storage/JetImport.h"

#include <QDir>
#include <QFileInfo>

namespace storage {

namespace {

// Reads the definition of the tables: only then does a file show that it merely looks like a database.
void ReadDefinition(Connection &connection) {
    try {
        connection.Run(QStringLiteral("SELECT COUNT(*) FROM sqlite_master"));
    } catch (const support::Error &error) {
        if (error.Number() == kErrSyntax) // the statement is right: the library does not know the file's form
            throw UnrecognizedFormat(connection.Name());
        throw;
    }
}

std::shared_ptr<Connection> OpenNative(const QString &path, int flags = SQLite::OPEN_READWRITE) {
    CheckNativeSize(path);
    auto connection = std::make_shared<Connection>(path, flags, path);
    if (flags == SQLite::OPEN_READONLY) connection->Run(QStringLiteral("PRAGMA busy_timeout=200"));
    ReadDefinition(*connection);
    return connection;
}

std::unique_ptr<Database::State> OpenState(const QString &path, int flags) {
    const QString name = FullPath(path);
    if (path.isEmpty()) throw FileNotFound(path);
    switch (RecogniseFile(name)) {
    case FileForm::Native:
        return std::make_unique<Database::State>(OpenNative(name, flags), name, true);
    case FileForm::Jet:
        return std::make_unique<Database::State>(ImportJet(name), name, false);
    default:
        throw UnrecognizedFormat(name);
    }
}

} // namespace

QString FullPath(const QString &path) {
    return QDir::toNativeSeparators(QFileInfo(QDir::fromNativeSeparators(path)).absoluteFilePath());
}

Database OpenDatabase(const QString &path) { return Database(OpenState(path, SQLite::OPEN_READWRITE)); }

Database OpenToRead(const QString &path) { return Database(OpenState(path, SQLite::OPEN_READONLY)); }

Database CreateDatabase(const QString &path) {
    constexpr int kFileMark = 0x566C6D72; // "Vlmr", what tools for files show as the kind of the database
    const QString name = FullPath(path);
    const QFileInfo info(name);
    if (info.exists()) throw DatabaseExists();
    if (path.isEmpty() || !info.absoluteDir().exists())
        throw EngineError(
            kErrInvalidPath,
            QStringLiteral("'%1' is not a valid path.  Make sure that the path name is spelled correctly "
                           "and that you are connected to the server on which the file resides.")
                .arg(path.isEmpty() ? path : name));
    auto connection = std::make_shared<Connection>(name, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, name);
    // A new file is nobody's yet: nothing waits for the disk as long as it is open.
    connection->Run(
        QStringLiteral("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY; PRAGMA application_id=%1")
            .arg(kFileMark));
    return Database(std::make_unique<Database::State>(std::move(connection), name, true));
}

Database OpenForBuilding(const QString &path) {
    const QString name = FullPath(path);
    if (RecogniseFile(name) != FileForm::Native) throw UnrecognizedFormat(name);
    auto connection = OpenNative(name);
    // The defensive mode would keep the journal on.
    sqlite3_db_config(connection->Handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    connection->Run(
        QStringLiteral("PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; "
                       "PRAGMA secure_delete=OFF; PRAGMA cache_size=-65536"));
    return Database(std::make_unique<Database::State>(std::move(connection), name, true));
}

} // namespace storage
