#include "storage/Connection.h"

#include "storage/EngineError.h"
#include "storage/SqlFunctions.h"

#include <QDateTime>
#include <SQLiteCpp/Exception.h>

namespace storage {

namespace {

constexpr int kBusyMilliseconds = 2000;

SQLite::Database OpenLibrary(const QString &file, int flags, const QString &name) {
    try {
        return SQLite::Database(file.toStdString(), flags | SQLite::OPEN_NOMUTEX, kBusyMilliseconds);
    } catch (const SQLite::Exception &error) {
        throw LibraryError(nullptr, error.getErrorCode(), name, QString());
    }
}

// A file may come from anywhere: what its definition could make the library run is not run.
void Harden(sqlite3 *handle) {
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_exec(handle, "PRAGMA cell_size_check=ON", nullptr, nullptr, nullptr);
}

int BindText(sqlite3_stmt *statement, int index, const QByteArray &utf8) {
    return sqlite3_bind_text64(statement, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT,
                               SQLITE_UTF8);
}

int BindVariant(sqlite3_stmt *statement, int index, const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return sqlite3_bind_null(statement, index);
    case QMetaType::Bool:
        return sqlite3_bind_int(statement, index, value.toBool() ? 1 : 0);
    case QMetaType::Float:
    case QMetaType::Double:
        return sqlite3_bind_double(statement, index, value.toDouble());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return sqlite3_bind_blob64(statement, index, bytes.constData(), bytes.size(), SQLITE_TRANSIENT);
    }
    case QMetaType::QDateTime:
        return BindText(statement, index,
                        value.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8());
    case QMetaType::QString:
        return BindText(statement, index, value.toString().toUtf8());
    default:
        break;
    }
    bool isWhole = false;
    const qlonglong number = value.toLongLong(&isWhole);
    return isWhole ? sqlite3_bind_int64(statement, index, number)
                   : BindText(statement, index, value.toString().toUtf8());
}

} // namespace

Connection::Connection(const QString &file, int flags, const QString &name)
    : name_(name), database_(OpenLibrary(file, flags, name)) {
    Harden(Handle());
    RegisterFunctions(Handle());
}

Statement Connection::Prepare(const QString &sql, QString *rest) const {
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt *statement = nullptr;
    const char *tail = nullptr;
    Check(
        sqlite3_prepare_v2(Handle(), utf8.constData(), static_cast<int>(utf8.size()) + 1, &statement, &tail),
        sql);
    if (rest) *rest = QString::fromUtf8(tail, utf8.constData() + utf8.size() - tail);
    return Statement(statement);
}

void Connection::Check(int code, const QString &sql) const {
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
        throw LibraryError(Handle(), code, name_, sql);
}

void Connection::RunToEnd(sqlite3_stmt *statement, const QString &sql) const {
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(statement);
    Check(code, sql);
}

void Connection::Run(const QString &sql) {
    QString rest = sql;
    while (const Statement statement = Prepare(QString(rest), &rest)) RunToEnd(statement.get(), sql);
}

void BindValue(const Connection &connection, sqlite3_stmt *statement, int index, const QVariant &value) {
    connection.Check(BindVariant(statement, index, value));
}

void BindAll(const Connection &connection, sqlite3_stmt *statement, const std::vector<Parameter> &values) {
    const int wanted = sqlite3_bind_parameter_count(statement);
    const int given = static_cast<int>(values.size());
    if (given < wanted) throw TooFewParameters(wanted - given);
    for (int i = 0; i < wanted; ++i) BindValue(connection, statement, i + 1, values[i]);
}

} // namespace storage
