#include "storage/EngineError.h"
#include "storage/RecordsetState.h"
#include "storage/text/FieldTypes.h"

#include <cmath>
#include <limits>

namespace storage {

namespace {

support::Error Overflow() {
    return EngineError(support::kErrOverflow, support::ErrorText(support::kErrOverflow));
}

support::Error TypeMismatch() {
    return EngineError(support::kErrTypeMismatch, support::ErrorText(support::kErrTypeMismatch));
}

// Asks the cell's value, which takes half as long as asking the row for text and size. Such values need no
// lock, as a connection is used by one thread at a time.
std::string_view TextOf(sqlite3_value *cell) {
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(cell));
    return text ? std::string_view(text, sqlite3_value_bytes(cell)) : std::string_view();
}

QString ToText(sqlite3_value *cell) {
    const std::string_view text = TextOf(cell);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

double NumberInText(const QString &text) {
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber) throw TypeMismatch();
    return number;
}

double NumberOf(sqlite3_value *cell) {
    switch (sqlite3_value_type(cell)) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        return sqlite3_value_double(cell);
    case SQLITE_NULL:
        return 0;
    default:
        return NumberInText(ToText(cell));
    }
}

// A whole number of the type asked for, ties rounded to the even neighbour.
template <typename Whole>
Whole WholeOf(sqlite3_value *cell) {
    using Limits = std::numeric_limits<Whole>;
    if (sqlite3_value_type(cell) == SQLITE_INTEGER) {
        const sqlite3_int64 value = sqlite3_value_int64(cell);
        if (value < Limits::min() || value > Limits::max()) throw Overflow();
        return static_cast<Whole>(value);
    }
    const double value = std::nearbyint(NumberOf(cell));
    if (!(value >= Limits::min() && value <= Limits::max())) throw Overflow();
    return static_cast<Whole>(value);
}

} // namespace

Recordset::State::State(std::shared_ptr<Connection> shared, QString text, std::vector<Parameter> values)
    : connection(std::move(shared)),
      sql(std::move(text)),
      parameters(std::move(values)),
      select(SplitSelect(sql)) {
    PrepareQuery();
    BindAll(*connection, statement.get(), parameters);
    Step();
}

void Recordset::State::PrepareQuery() {
    if (select) {
        try {
            statement = connection->Prepare(select->WithRowId());
            fieldCount = sqlite3_column_count(statement.get()) - 1;
            return;
        } catch (const support::Error &) {
            // Not a table with rows of its own, or no valid query: preparing the text itself tells which.
            select.reset();
        }
    }
    statement = connection->Prepare(sql);
    if (!statement)
        throw EngineError(kErrSyntax, QStringLiteral("Syntax error in query expression '%1'.").arg(sql));
    fieldCount = sqlite3_column_count(statement.get());
}

void Recordset::State::Step() {
    row = nullptr;
    const int code = sqlite3_step(statement.get());
    if (code == SQLITE_ROW) {
        row = statement.get();
        ++passed;
    }
    connection->Check(code, sql);
}

void Recordset::State::FailAt() const {
    if (!row) throw NoCurrentRecord();
    throw FieldNotFound();
}

int Recordset::State::Find(const QString &name) const {
    const QByteArray wanted = name.toUtf8();
    for (int i = 0; i < fieldCount; ++i) {
        const char *text = sqlite3_column_name(statement.get(), i);
        if (text && (sqlite3_stricmp(text, wanted.constData()) == 0 ||
                     QString::fromUtf8(text).compare(name, Qt::CaseInsensitive) == 0))
            return i;
    }
    return -1;
}

std::int64_t Recordset::State::CountRows() const {
    QString inner = sql.trimmed();
    while (inner.endsWith(QLatin1Char(';'))) inner.chop(1);
    const QString counting = QStringLiteral("SELECT COUNT(*) FROM (%1)").arg(inner);
    const Statement counter = connection->Prepare(counting);
    BindAll(*connection, counter.get(), parameters);
    connection->Check(sqlite3_step(counter.get()), counting);
    return sqlite3_column_int64(counter.get(), 0);
}

Recordset::Recordset(std::unique_ptr<State> state) : state_(std::move(state)) {}
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset &&) noexcept = default;
Recordset &Recordset::operator=(Recordset &&) noexcept = default;

bool Recordset::EndOfFile() const { return !state_->row; }

bool Recordset::BeginningOfFile() const { return state_->passed == 0; }

void Recordset::MoveNext() {
    if (!state_->row) throw NoCurrentRecord();
    state_->change = State::Change::None;
    state_->Step();
    ++state_->position;
}

void Recordset::MoveFirst() {
    if (!state_->statement) throw NoCurrentRecord();
    sqlite3_reset(state_->statement.get());
    state_->change = State::Change::None;
    state_->position = 0;
    state_->passed = 0;
    state_->Step();
    if (!state_->row) throw NoCurrentRecord();
}

double Recordset::PercentPosition() const {
    constexpr double kWhole = 100;
    if (state_->passed == 0) return 0;
    if (!state_->row) return kWhole;
    if (state_->count < 0) state_->count = state_->CountRows();
    return state_->count > 0 ? std::min(kWhole, kWhole * static_cast<double>(state_->position) /
                                                    static_cast<double>(state_->count))
                             : 0;
}

int Recordset::FieldCount() const { return state_->fieldCount; }

QString Recordset::FieldName(int column) const {
    if (column < 0 || column >= state_->fieldCount) throw FieldNotFound();
    return QString::fromUtf8(sqlite3_column_name(state_->statement.get(), column));
}

int Recordset::Column(const QString &name) const {
    const int column = FindColumn(name);
    if (column < 0) throw FieldNotFound();
    return column;
}

int Recordset::FindColumn(const QString &name) const { return state_->Find(name); }

bool Recordset::IsNull(int column) const { return sqlite3_value_type(state_->Cell(column)) == SQLITE_NULL; }

bool Recordset::Boolean(int column) const {
    sqlite3_value *cell = state_->Cell(column);
    if (sqlite3_value_type(cell) == SQLITE_INTEGER) return sqlite3_value_int64(cell) != 0;
    if (sqlite3_value_type(cell) == SQLITE_TEXT) {
        const QString text = ToText(cell);
        if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) return true;
        if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) return false;
    }
    return NumberOf(cell) != 0;
}

std::int16_t Recordset::Integer(int column) const { return WholeOf<std::int16_t>(state_->Cell(column)); }

std::int32_t Recordset::Long(int column) const { return WholeOf<std::int32_t>(state_->Cell(column)); }

float Recordset::Single(int column) const {
    const double value = NumberOf(state_->Cell(column));
    if (!(std::abs(value) <= std::numeric_limits<float>::max())) throw Overflow();
    return static_cast<float>(value);
}

double Recordset::Double(int column) const {
    const double value = NumberOf(state_->Cell(column));
    if (!std::isfinite(value)) throw Overflow();
    return value;
}

QString Recordset::Text(int column) const { return ToText(state_->Cell(column)); }

std::string_view Recordset::Utf8(int column) const { return TextOf(state_->Cell(column)); }

QByteArray Recordset::Bytes(int column) const {
    sqlite3_stmt *row = state_->At(column);
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(row, column));
    return QByteArray(bytes, sqlite3_column_bytes(row, column));
}

QVariant Recordset::Value(const QString &name) const {
    const int column = Column(name);
    sqlite3_stmt *row = state_->At(column);
    const char *declared = sqlite3_column_decltype(row, column);
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_BLOB:
        return Bytes(column);
    case SQLITE_TEXT:
        return Text(column);
    case SQLITE_FLOAT:
        return sqlite3_column_double(row, column);
    default:
        break;
    }
    const FieldType type = ParseDeclaredType(name, QString::fromUtf8(declared)).type;
    if (type == FieldType::Boolean) return Boolean(column);
    if (declared && (type == FieldType::Single || type == FieldType::Double || type == FieldType::Currency))
        return sqlite3_column_double(row, column);
    return static_cast<qlonglong>(sqlite3_column_int64(row, column));
}

void Recordset::Close() { *this = Recordset(std::make_unique<State>()); }

} // namespace storage
