#include "storage/Database.h"

#include "storage/DatabaseState.h"
#include "storage/EngineError.h"
#include "storage/PreparedState.h"
#include "storage/RecordsetState.h"
#include "storage/text/FieldTypes.h"

namespace storage {

namespace {

QString SavepointName(int depth) { return QStringLiteral("level%1").arg(depth); }

support::Error NoTransaction() {
    return EngineError(
        kErrNoTransaction,
        QStringLiteral("You tried to commit or rollback a transaction without first beginning a "
                       "transaction."));
}

QString ColumnText(const Field &field) {
    return QuotedName(field.name) + QLatin1Char(' ') + DeclaredType(field.type, field.size);
}

TableDef ReadTable(Connection &connection, const QString &name) {
    const QString sql = QStringLiteral("PRAGMA table_info(%1)").arg(QuotedName(name));
    const Statement rows = connection.Prepare(sql);
    constexpr int kName = 1;
    constexpr int kType = 2;
    TableDef table{name, {}};
    int code = sqlite3_step(rows.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(rows.get())) {
        const auto text = [&rows](int column) {
            return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(rows.get(), column)));
        };
        table.fields.push_back(ParseDeclaredType(text(kName), text(kType)));
    }
    connection.Check(code, sql);
    return table;
}

QStringList TableNames(Connection &connection) {
    const QString sql = QStringLiteral("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE "
                                       "'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
    const Statement rows = connection.Prepare(sql);
    QStringList names;
    int code = sqlite3_step(rows.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(rows.get()))
        names += QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(rows.get(), 0)));
    connection.Check(code, sql);
    return names;
}

} // namespace

Connection &Database::State::Open() {
    if (!connection) throw EngineError(kErrObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    return *connection;
}

Database::Database(std::unique_ptr<State> state) : state_(std::move(state)) {}
Database::~Database() = default;
Database::Database(Database &&) noexcept = default;
Database &Database::operator=(Database &&) noexcept = default;

const QString &Database::Name() const { return state_->name; }

bool Database::IsNative() const { return state_->isNative; }

void Database::Execute(const QString &sql, int, std::initializer_list<Parameter> parameters) {
    Connection &connection = state_->Open();
    std::vector<Parameter> values(parameters);
    QString rest = sql;
    while (const Statement statement = connection.Prepare(QString(rest), &rest)) {
        BindAll(connection, statement.get(), values);
        connection.RunToEnd(statement.get(), sql);
        values.clear();
    }
}

Recordset Database::OpenRecordset(const QString &sql, std::initializer_list<Parameter> parameters) {
    state_->Open();
    return Recordset(std::make_unique<Recordset::State>(state_->connection, sql, parameters));
}

PreparedStatement Database::Prepare(const QString &sql) {
    Statement statement = state_->Open().Prepare(sql);
    if (!statement)
        throw EngineError(kErrSyntax, QStringLiteral("Syntax error in query expression '%1'.").arg(sql));
    return PreparedStatement(std::make_unique<PreparedStatement::State>(
        PreparedStatement::State{state_->connection, sql, std::move(statement)}));
}

void Database::BeginTrans() {
    Connection &connection = state_->Open();
    connection.Run(state_->depth == 0 ? QStringLiteral("BEGIN")
                                      : QStringLiteral("SAVEPOINT ") + SavepointName(state_->depth));
    ++state_->depth;
}

void Database::CommitTrans(int) {
    Connection &connection = state_->Open();
    if (state_->depth == 0) throw NoTransaction();
    const int inner = state_->depth - 1;
    connection.Run(inner == 0 ? QStringLiteral("COMMIT") : QStringLiteral("RELEASE ") + SavepointName(inner));
    state_->depth = inner;
}

void Database::Rollback() {
    Connection &connection = state_->Open();
    if (state_->depth == 0) throw NoTransaction();
    const int inner = --state_->depth;
    if (sqlite3_get_autocommit(connection.Handle())) { // a grave error has undone all of them already
        state_->depth = 0;
        return;
    }
    const QString name = SavepointName(inner);
    connection.Run(inner == 0 ? QStringLiteral("ROLLBACK")
                              : QStringLiteral("ROLLBACK TO %1; RELEASE %1").arg(name));
}

void Database::Idle() { sqlite3_db_cacheflush(state_->Open().Handle()); }

std::vector<TableDef> Database::TableDefs() const {
    Connection &connection = state_->Open();
    std::vector<TableDef> tables;
    for (const QString &name : TableNames(connection)) tables.push_back(ReadTable(connection, name));
    return tables;
}

TableDef Database::Table(const QString &name) const {
    Connection &connection = state_->Open();
    for (const QString &table : TableNames(connection)) {
        if (table.compare(name, Qt::CaseInsensitive) == 0) return ReadTable(connection, table);
    }
    throw FieldNotFound();
}

void Database::CreateTable(const TableDef &table) {
    QStringList columns;
    for (const Field &field : table.fields) columns += ColumnText(field);
    state_->Open().Run(QStringLiteral("CREATE TABLE %1 (%2)")
                           .arg(QuotedName(table.name), columns.join(QStringLiteral(", "))));
}

void Database::AppendField(const QString &table, const Field &field) {
    state_->Open().Run(
        QStringLiteral("ALTER TABLE %1 ADD COLUMN %2").arg(QuotedName(table), ColumnText(field)));
}

void Database::Close() { state_->connection.reset(); }

} // namespace storage
