#include "storage/EngineError.h"

#include "storage/text/ErrorNumbers.h"

#include <QRegularExpression>
#include <sqlite3.h>

namespace storage {

namespace {

QString Quoted(const char *text, const QString &value) {
    return QString::fromLatin1(text).replace(QLatin1String("%1"), value);
}

// What the library says in words only, with the engine's number and text; %1 is the name that the pattern
// catches.
struct MessageRow {
    const char *pattern;
    long number;
    const char *text;
};

constexpr MessageRow kMessages[] = {
    {"^no such table: (?:main\\.)?(.*)$", kErrTableNotFound,
     "The database engine cannot find the input table or query '%1'. Make sure it exists and that its name "
     "is spelled correctly."},
    {"^table .* has no column named (.*)$", kErrUnknownInsertField,
     "The INSERT INTO statement contains the following unknown field name: '%1'. Make sure you have typed "
     "the name correctly, and try the operation again."},
    {"^no such function: (.*)$", kErrUndefinedFunction, "Undefined function '%1' in expression."},
    {"^wrong number of arguments to function (.*)\\(\\)$", kErrWrongArguments,
     "Wrong number of arguments used with function '%1'."},
    {"^table \"?(.*?)\"? already exists$", kErrTableExists, "Table '%1' already exists."},
    {"^duplicate column name: (.*)$", kErrFieldTwice, "Cannot define field more than once."},
    {"^(?:table .* has \\d+ columns but )?\\d+ values (?:for \\d+ columns|were supplied)$", kErrValueCount,
     "Number of query values and destination fields are not the same."},
    {"^Data type mismatch in criteria expression\\.$", kErrCriteriaType,
     "Data type mismatch in criteria expression."},
    {"^Invalid use of Null$", kErrInvalidNull, "Invalid use of Null"},
    {"^Overflow$", support::kErrOverflow, "Overflow"},
};

// Result codes that say enough by themselves. %1 is the file.
struct CodeRow {
    int code;
    long number;
    const char *text;
};

constexpr CodeRow kCodes[] = {
    {SQLITE_NOTADB, kErrUnrecognizedFormat, "Unrecognized database format '%1'."},
    {SQLITE_CORRUPT, kErrDamaged,
     "Cannot open database '%1'.  It may not be a database that your application recognizes, or the file may "
     "be corrupt."},
    {SQLITE_FULL, kErrDiskFull, "Not enough space on disk."},
    {SQLITE_READONLY, kErrReadOnly, "Cannot update. Database or object is read-only."},
    {SQLITE_BUSY, kErrFileInUse, "Could not use '%1'; file already in use."},
    {SQLITE_LOCKED, kErrFileInUse, "Could not use '%1'; file already in use."},
    {SQLITE_CANTOPEN, kErrCannotOpenFile,
     "The database engine cannot open or write to the file '%1'. It is already opened exclusively by another "
     "user, or you need permission to view and write its data."},
    {SQLITE_PERM, kErrCannotOpenFile,
     "The database engine cannot open or write to the file '%1'. It is already opened exclusively by another "
     "user, or you need permission to view and write its data."},
    {SQLITE_IOERR, kErrIo, "Disk or network error."},
    {SQLITE_NOMEM, support::kErrOutOfMemory, "Out of memory"},
    {SQLITE_TOOBIG, kErrFieldTooSmall,
     "The field is too small to accept the amount of data you attempted to add. Try inserting or pasting "
     "less data."},
};

support::Error CodeError(int code, const QString &path) {
    for (const CodeRow &row : kCodes) {
        if (row.code == code) return EngineError(row.number, Quoted(row.text, path));
    }
    return EngineError(kErrReserved,
                       QStringLiteral("Reserved error (%1); there is no message for this error.").arg(code));
}

support::Error ConstraintError(int extendedCode, const QString &message) {
    switch (extendedCode) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return EngineError(
            kErrDuplicateKey,
            QStringLiteral("The changes you requested to the table were not successful because they "
                           "would create duplicate values in the index, primary key, or relationship. "
                           "Change the data in the field or fields that contain duplicate data, remove "
                           "the index, or redefine the index to permit duplicate entries and try "
                           "again."));
    case SQLITE_CONSTRAINT_NOTNULL:
        return EngineError(
            kErrNullNotAllowed,
            QStringLiteral("The field '%1' cannot contain a Null value because the Required property "
                           "for this field is set to True. Enter a value in this field.")
                .arg(message.section(QStringLiteral(": "), 1)));
    default:
        return EngineError(kErrConstraint,
                           QStringLiteral("One or more values are prohibited by the validation rule set for "
                                          "'%1'.")
                               .arg(message.section(QStringLiteral(": "), 1)));
    }
}

// The name of the column that `message` says is unknown; empty for other messages.
QString UnknownColumn(const QString &message) {
    const QString prefix = QStringLiteral("no such column: ");
    return message.startsWith(prefix) ? message.mid(prefix.size()) : QString();
}

// Names that nothing in the statement explains count as parameters without a value. The library tells one at
// a time, so each is replaced by Null until none is left.
int CountUnknownColumns(sqlite3 *handle, QString sql, QString name) {
    constexpr int kMost = 50;
    int count = 0;
    while (!name.isEmpty() && count < kMost) {
        ++count;
        const QString bare = QRegularExpression::escape(name.section(QLatin1Char('.'), -1));
        const QRegularExpression use(QStringLiteral("(?:[\\w\\]]+\\.)?(?:\\[%1\\]|\\b%1\\b)").arg(bare),
                                     QRegularExpression::CaseInsensitiveOption);
        const QString replaced = QString(sql).replace(use, QStringLiteral("NULL"));
        if (replaced == sql) break;
        sql = replaced;
        sqlite3_stmt *statement = nullptr;
        const int code = sqlite3_prepare_v2(handle, sql.toUtf8().constData(), -1, &statement, nullptr);
        sqlite3_finalize(statement);
        name = code == SQLITE_OK ? QString() : UnknownColumn(QString::fromUtf8(sqlite3_errmsg(handle)));
    }
    return count;
}

support::Error WordedError(sqlite3 *handle, const QString &message, const QString &sql) {
    const QString unknown = UnknownColumn(message);
    if (!unknown.isEmpty()) return TooFewParameters(CountUnknownColumns(handle, sql, unknown));
    for (const MessageRow &row : kMessages) {
        const auto match = QRegularExpression(QString::fromLatin1(row.pattern)).match(message);
        if (match.hasMatch()) return EngineError(row.number, Quoted(row.text, match.captured(1)));
    }
    if (message.contains(QLatin1String("syntax error")) ||
        message.startsWith(QLatin1String("incomplete input")) ||
        message.startsWith(QLatin1String("unrecognized token")))
        return EngineError(kErrSyntax, QStringLiteral("Syntax error in query expression '%1'.").arg(sql));
    return EngineError(kErrSyntax, QStringLiteral("%1 in query expression '%2'.").arg(message, sql));
}

} // namespace

support::Error EngineError(long number, const QString &description) {
    return support::Error(number, QStringLiteral("Storage.Database"), description);
}

support::Error FileNotFound(const QString &path) {
    return EngineError(kErrFileNotFound, QStringLiteral("Could not find file '%1'.").arg(path));
}

support::Error CannotOpenFile(const QString &path) { return CodeError(SQLITE_CANTOPEN, path); }

support::Error UnrecognizedFormat(const QString &path) { return CodeError(SQLITE_NOTADB, path); }

support::Error DamagedDatabase(const QString &path) { return CodeError(SQLITE_CORRUPT, path); }

support::Error DatabaseExists() {
    return EngineError(kErrDatabaseExists, QStringLiteral("Database already exists."));
}

support::Error FieldNotFound() {
    return EngineError(kErrFieldNotFound, QStringLiteral("Item not found in this collection."));
}

support::Error NoCurrentRecord() {
    return EngineError(kErrNoCurrentRecord, QStringLiteral("No current record."));
}

support::Error ReadOnlyDatabase() { return CodeError(SQLITE_READONLY, QString()); }

support::Error TooFewParameters(int expected) {
    return EngineError(kErrTooFewParameters,
                       QStringLiteral("Too few parameters. Expected %1.").arg(expected));
}

support::Error LibraryError(sqlite3 *handle, int code, const QString &path, const QString &sql) {
    const QString message = QString::fromUtf8(handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code));
    const int primary = code & 0xFF;
    if (primary == SQLITE_CONSTRAINT)
        return ConstraintError(handle ? sqlite3_extended_errcode(handle) : code, message);
    if (primary == SQLITE_ERROR && handle) return WordedError(handle, message, sql);
    return CodeError(primary, path);
}

} // namespace storage
