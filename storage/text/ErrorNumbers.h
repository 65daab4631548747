// The numbers of the engine's errors.
#pragma once

namespace storage {

// Each with the text that it is raised with, or what it is raised for. PATH, NAME, SQL and N stand for what
// is meant.
constexpr long kErrInvalidNull = 94;          // "Invalid use of Null"
constexpr long kErrReserved = 3000;           // "Reserved error (N); there is no message for this error."
constexpr long kErrTableExists = 3010;        // "Table 'NAME' already exists."
constexpr long kErrNoEdit = 3020;             // "Update or CancelUpdate without AddNew or Edit."
constexpr long kErrNoCurrentRecord = 3021;    // "No current record."
constexpr long kErrDuplicateKey = 3022;       // a value twice in a unique index
constexpr long kErrFileNotFound = 3024;       // "Could not find file 'PATH'."
constexpr long kErrReadOnly = 3027;           // "Cannot update. Database or object is read-only."
constexpr long kErrNoTransaction = 3034;      // "You tried to commit or rollback a transaction ..."
constexpr long kErrIo = 3043;                 // "Disk or network error."
constexpr long kErrInvalidPath = 3044;        // "'PATH' is not a valid path. ...": of a new file
constexpr long kErrFileInUse = 3045;          // "Could not use 'PATH'; file already in use."
constexpr long kErrDamaged = 3049;            // "Cannot open database 'PATH'. ...": cut off or damaged
constexpr long kErrCannotOpenFile = 3051;     // "... cannot open or write to the file 'PATH'. ..."
constexpr long kErrTooFewParameters = 3061;   // "Too few parameters. Expected N.": unknown names too
constexpr long kErrSyntax = 3075;             // "Syntax error in query expression 'SQL'."
constexpr long kErrTableNotFound = 3078;      // "... cannot find the input table or query 'NAME'. ..."
constexpr long kErrWrongArguments = 3079;     // "Wrong number of arguments used with function 'NAME'."
constexpr long kErrUndefinedFunction = 3085;  // "Undefined function 'NAME' in expression."
constexpr long kErrUnknownInsertField = 3127; // an INSERT names a column that the table lacks
constexpr long kErrFieldTooSmall = 3163;      // "The field is too small to accept the amount of data ..."
constexpr long kErrDiskFull = 3183;           // "Not enough space on disk."
constexpr long kErrFieldTwice = 3191;         // "Cannot define field more than once."
constexpr long kErrDatabaseExists = 3204;     // "Database already exists."
constexpr long kErrFieldNotFound = 3265;      // "Item not found in this collection."
constexpr long kErrExternalFormat = 3274;     // "External table isn't in the expected format.": a text file
constexpr long kErrNullNotAllowed = 3314;     // Null in a field that must have a value
constexpr long kErrConstraint = 3317;         // "One or more values are prohibited by the validation ..."
constexpr long kErrUnrecognizedFormat = 3343; // "Unrecognized database format 'PATH'.": no database at all
constexpr long kErrValueCount = 3346;         // "Number of query values and destination fields are not ..."
constexpr long kErrObjectInvalid = 3420;      // "Object invalid or no longer set.": used after Close
constexpr long kErrCriteriaType = 3464;       // "Data type mismatch in criteria expression.": of CDATE

} // namespace storage
