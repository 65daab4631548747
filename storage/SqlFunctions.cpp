#include "storage/SqlFunctions.h"

#include "storage/text/DateText.h"
#include "support/Error.h"
#include "support/Val.h"

#include <cmath>
#include <sqlite3.h>

namespace storage {

namespace {

QString TextOf(sqlite3_value *value) {
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

bool RefuseNull(sqlite3_context *context, sqlite3_value *value) {
    if (sqlite3_value_type(value) != SQLITE_NULL) return false;
    sqlite3_result_error(context, "Invalid use of Null", -1);
    return true;
}

void ValFunction(sqlite3_context *context, int, sqlite3_value **values) {
    constexpr double kExact = 9007199254740992.0;
    if (RefuseNull(context, values[0])) return;
    try {
        const double number = support::Val(TextOf(values[0]));
        if (std::abs(number) < kExact && number == std::trunc(number))
            sqlite3_result_int64(context, static_cast<sqlite3_int64>(number));
        else
            sqlite3_result_double(context, number);
    } catch (const std::exception &error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

void CDateFunction(sqlite3_context *context, int, sqlite3_value **values) {
    if (RefuseNull(context, values[0])) return;
    try {
        const QByteArray date = ReadDate(TextOf(values[0])).toUtf8();
        if (date.isEmpty())
            sqlite3_result_error(context, "Data type mismatch in criteria expression.", -1);
        else
            sqlite3_result_text(context, date.constData(), static_cast<int>(date.size()), SQLITE_TRANSIENT);
    } catch (const std::exception &error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

} // namespace

void RegisterFunctions(sqlite3 *handle) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    sqlite3_create_function_v2(handle, "VAL", 1, kFlags, nullptr, ValFunction, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(handle, "CDATE", 1, kFlags, nullptr, CDateFunction, nullptr, nullptr, nullptr);
}

} // namespace storage
