// The functions that SQL text may call beside the library's own.
#pragma once

struct sqlite3;

namespace storage {

// Makes VAL and CDATE known to the connection. Null is error 94 "Invalid use of Null" for both; CDATE of a
// text that is no date is error 3464 "Data type mismatch in criteria expression.".
void RegisterFunctions(sqlite3 *handle);

} // namespace storage
