#include "storage/Connection.h"
#include "storage/EngineError.h"
#include "storage/PreparedState.h"

#include <optional>

namespace storage {

namespace {
// The library takes a null pointer for Null, so an empty text needs an address too.
const char *Address(const char *data) { return data ? data : ""; }
} // namespace

PreparedStatement::PreparedStatement(std::unique_ptr<State> state) : state_(std::move(state)) {}
PreparedStatement::~PreparedStatement() = default;
PreparedStatement::PreparedStatement(PreparedStatement &&) noexcept = default;
PreparedStatement &PreparedStatement::operator=(PreparedStatement &&) noexcept = default;

void PreparedStatement::BindNull(int index) {
    state_->Check(sqlite3_bind_null(state_->statement.get(), index + 1));
}

void PreparedStatement::BindLong(int index, std::int64_t value) {
    state_->Check(sqlite3_bind_int64(state_->statement.get(), index + 1, value));
}

void PreparedStatement::BindDouble(int index, double value) {
    state_->Check(sqlite3_bind_double(state_->statement.get(), index + 1, value));
}

void PreparedStatement::BindText(int index, const QString &value) {
    const QByteArray utf8 = value.toUtf8();
    state_->Check(sqlite3_bind_text64(state_->statement.get(), index + 1, utf8.constData(), utf8.size(),
                                      SQLITE_TRANSIENT, SQLITE_UTF8));
}

void PreparedStatement::BindUtf8(int index, std::string_view value) {
    state_->Check(sqlite3_bind_text64(state_->statement.get(), index + 1, Address(value.data()), value.size(),
                                      SQLITE_STATIC, SQLITE_UTF8));
}

void PreparedStatement::BindBytes(int index, const QByteArray &value) {
    state_->Check(sqlite3_bind_blob64(state_->statement.get(), index + 1, value.constData(), value.size(),
                                      SQLITE_STATIC));
}

void PreparedStatement::Run() {
    sqlite3_stmt *statement = state_->statement.get();
    const Connection &connection = *state_->connection;
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(statement);
    std::optional<support::Error> error; // made before the reset, which forgets the library's words
    if (code != SQLITE_DONE) error = LibraryError(connection.Handle(), code, connection.Name(), state_->sql);
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    if (error) throw support::Error(*error);
}

} // namespace storage
