// The numbers of the engine's errors.
#pragma once

namespace storage {

// With the texts of the engine. PATH, NAME and N stand for what is meant.
constexpr long kErrFieldNotFound = 3265;   // "Item not found in this collection."
constexpr long kErrNoCurrentRecord = 3021; // "No current record."
constexpr long kErrNoEdit = 3020;          // "Update or CancelUpdate without AddNew or Edit."
constexpr long kErrFileNotFound = 3024;    // "Could not find file 'PATH'."
constexpr long kErrInvalidPath = 3044; // "'PATH' is not a valid path. ..." (a new file in a missing folder)
constexpr long kErrTableNotFound =
    3078; // "The database engine cannot find the input table or query 'NAME'. ..."
constexpr long kErrUnrecognizedFormat = 3343; // "Unrecognized database format 'PATH'." (no database at all)
constexpr long kErrDamaged = 3049;            // "Cannot open database 'PATH'. ..." (cut off or damaged)
constexpr long kErrCannotOpenFile =
    3051;                               // "The database engine cannot open or write to the file 'PATH'. ..."
constexpr long kErrReadOnly = 3027;     // "Cannot update. Database or object is read-only."
constexpr long kErrFileInUse = 3045;    // "Could not use 'PATH'; file already in use."
constexpr long kErrDuplicateKey = 3022; // a value twice in a unique index
constexpr long kErrNullNotAllowed = 3314; // Null in a field that must have a value
constexpr long kErrDiskFull = 3183;       // "Not enough space on disk."
constexpr long kErrSyntax = 3075;         // "Syntax error in query expression 'SQL'."
constexpr long kErrTooFewParameters =
    3061; // "Too few parameters. Expected N." (unknown names in SQL as well)
constexpr long kErrUnknownInsertField = 3127; // an INSERT names a column that the table lacks
constexpr long kErrUndefinedFunction = 3085;  // "Undefined function 'NAME' in expression."
constexpr long kErrCriteriaType = 3464;   // "Data type mismatch in criteria expression." (CDATE of no date)
constexpr long kErrTableExists = 3010;    // "Table 'NAME' already exists."
constexpr long kErrNoTransaction = 3034;  // "You tried to commit or rollback a transaction without first ..."
constexpr long kErrIo = 3043;             // "Disk or network error."
constexpr long kErrDatabaseExists = 3204; // "Database already exists."
constexpr long kErrFieldTwice = 3191;     // "Cannot define field more than once."
constexpr long kErrExternalFormat = 3274; // "External table isn't in the expected format." (a text file)
constexpr long kErrObjectInvalid = 3420;  // "Object invalid or no longer set." (used after Close)

} // namespace storage
