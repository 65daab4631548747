// Changing the rows of a recordset.
#include "storage/EngineError.h"
#include "storage/RecordsetState.h"
#include "storage/text/FieldTypes.h"

namespace storage {

namespace {

support::Error NoEdit() {
    return EngineError(kErrNoEdit, QStringLiteral("Update or CancelUpdate without AddNew or Edit."));
}

using Pending = std::vector<std::pair<QString, QVariant>>;

QString InsertText(const QString &table, const Pending &pending) {
    if (pending.empty()) return QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(QuotedName(table));
    QStringList names;
    QStringList marks;
    for (const auto &[name, value] : pending) {
        names += QuotedName(name);
        marks += QStringLiteral("?");
    }
    const QString comma = QStringLiteral(", ");
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(QuotedName(table), names.join(comma), marks.join(comma));
}

QString UpdateText(const QString &table, const Pending &pending) {
    QStringList settings;
    for (const auto &[name, value] : pending) settings += QuotedName(name) + QStringLiteral("=?");
    return QStringLiteral("UPDATE %1 SET %2 WHERE _rowid_=?")
        .arg(QuotedName(table), settings.join(QStringLiteral(", ")));
}

} // namespace

void Recordset::State::RunChange() {
    const bool isEdit = change == Change::Edit;
    if (isEdit && pending.empty()) return;
    const QString text = isEdit ? UpdateText(select->table, pending) : InsertText(select->table, pending);
    const Statement changing = connection->Prepare(text);
    int index = 0;
    for (const auto &[name, value] : pending) BindValue(*connection, changing.get(), ++index, value);
    if (isEdit)
        sqlite3_bind_int64(changing.get(), ++index, sqlite3_column_int64(statement.get(), fieldCount));
    connection->RunToEnd(changing.get(), text);
    if (isEdit) ReadAgain();
}

// The running query keeps what it read before; the changed row is read by a statement of its own until the
// next move.
void Recordset::State::ReadAgain() {
    if (!changedRow) changedRow = connection->Prepare(select->OfOneRow());
    sqlite3_reset(changedRow.get());
    sqlite3_bind_int64(changedRow.get(), 1, sqlite3_column_int64(statement.get(), fieldCount));
    const int code = sqlite3_step(changedRow.get());
    connection->Check(code);
    if (code == SQLITE_ROW) row = changedRow.get();
}

void Recordset::Edit() {
    if (!state_->row) throw NoCurrentRecord();
    if (!state_->select) throw ReadOnlyDatabase();
    state_->change = State::Change::Edit;
    state_->pending.clear();
}

void Recordset::AddNew() {
    if (!state_->select) throw ReadOnlyDatabase();
    state_->change = State::Change::Add;
    state_->pending.clear();
}

void Recordset::Set(const QString &name, const QVariant &value) {
    if (state_->change == State::Change::None) throw NoEdit();
    const QString column = FieldName(Column(name));
    for (auto &[setName, setValue] : state_->pending) {
        if (setName == column) {
            setValue = value;
            return;
        }
    }
    state_->pending.emplace_back(column, value);
}

void Recordset::AppendChunk(const QString &name, const QByteArray &bytes) {
    if (state_->change == State::Change::None) throw NoEdit();
    const QString column = FieldName(Column(name));
    for (auto &[setName, setValue] : state_->pending) {
        if (setName == column) {
            QByteArray whole = setValue.toByteArray();
            setValue.clear(); // the bytes are then not shared, and grow in place
            whole += bytes;
            setValue = whole;
            return;
        }
    }
    state_->pending.emplace_back(column, bytes);
}

QByteArray Recordset::GetChunk(const QString &name, qint64 offset, qint64 count) const {
    const int column = Column(name);
    sqlite3_stmt *row = state_->At(column);
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(row, column));
    const qint64 size = sqlite3_column_bytes(row, column);
    if (offset < 0 || count < 0)
        throw EngineError(support::kErrInvalidProcedureCall,
                          support::ErrorText(support::kErrInvalidProcedureCall));
    if (offset >= size) return {};
    return QByteArray(bytes + offset, std::min(count, size - offset));
}

void Recordset::Update() {
    if (state_->change == State::Change::None) throw NoEdit();
    state_->RunChange();
    state_->change = State::Change::None;
    state_->pending.clear();
}

} // namespace storage
