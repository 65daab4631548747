// The database engine as the program uses it: a small facade over SQLite with the engine's names and error
// numbers. Table and column names match without regard to case. SQL text may use VAL('...') and CDATE('...'),
// True and False.
#pragma once

#include "storage/text/ErrorNumbers.h"
#include "storage/text/Field.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <string_view>
#include <vector>

namespace storage {

// Option of Execute: any failure of a statement is raised and the statement undone. Both always happen here.
constexpr int kFailOnError = 128;
// Option of CommitTrans: wait until the changes are on the disk. It does so without the option too, except in
// a file that was just made or is being built.
constexpr int kForceFlush = 1;

// A table's name with its columns in order.
struct TableDef {
    QString name;
    std::vector<Field> fields;
};

// A value to bind in the place of a ? of the SQL text.
using Parameter = QVariant;

class Database;
struct Salvaged;

// The rows of a query. Rows are read one after the other as the caller moves; Edit, AddNew and Update work on
// a recordset of one table. It can be read after its database was closed: the connection ends with the last
// of both.
class Recordset {
public:
    ~Recordset();
    Recordset(Recordset &&) noexcept;
    Recordset &operator=(Recordset &&) noexcept;

    bool EndOfFile() const;       // no current row: behind the last one, or no rows at all
    bool BeginningOfFile() const; // no rows at all, or before the first one
    void MoveNext();              // 3021 at the end
    void MoveFirst();             // walks over the rows again; 3021 without rows
    // Share of the rows that were passed, 0 to 100. Counts the rows once, at the first call.
    double PercentPosition() const;

    int FieldCount() const;
    QString FieldName(int column) const;
    // The column of that name without regard to case; 3265 "Item not found in this collection." when there is
    // none.
    int Column(const QString &name) const;
    // The same, or -1.
    int FindColumn(const QString &name) const;

    // Values of the current row (3021 without one). Null gives 0, false or an empty text. A text may hold a
    // number, or True or False for Boolean; any other text where a number is asked for is error 13 "Type
    // mismatch". A number out of the range of the type asked for is error 6 "Overflow".
    bool IsNull(int column) const;
    bool Boolean(int column) const;
    std::int16_t Integer(int column) const;
    std::int32_t Long(int column) const;
    float Single(int column) const;
    double Double(int column) const;
    QString Text(int column) const;
    // The text as UTF-8, valid until the recordset moves: for comparing and hashing without a conversion.
    std::string_view Utf8(int column) const;
    QByteArray Bytes(int column) const;
    QVariant Value(const QString &name) const;

    // Changing rows: Edit (the current row) or AddNew, then Set..., then Update. Update writes at once;
    // without Edit or AddNew it is error 3020 "Update or CancelUpdate without AddNew or Edit."
    void Edit();
    void AddNew();
    void Set(const QString &name, const QVariant &value);
    // Adds bytes to what is set for a long binary field since Edit or AddNew.
    void AppendChunk(const QString &name, const QByteArray &bytes);
    // Up to `count` bytes of a long binary field from `offset` on.
    QByteArray GetChunk(const QString &name, qint64 offset, qint64 count) const;
    void Update();
    void Close();

private:
    friend class Database;
    struct State;
    explicit Recordset(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

// A statement prepared once and executed many times with other values.
class PreparedStatement {
public:
    ~PreparedStatement();
    PreparedStatement(PreparedStatement &&) noexcept;
    PreparedStatement &operator=(PreparedStatement &&) noexcept;

    // Values for the ? marks, counted from 0. Texts and bytes are copied or must live until Run, as each
    // tells.
    void BindNull(int index);
    void BindLong(int index, std::int64_t value);
    void BindDouble(int index, double value);
    void BindBoolean(int index, bool value) { BindLong(index, value ? 1 : 0); }
    void BindText(int index, const QString &value);     // converts to UTF-8 and copies
    void BindUtf8(int index, std::string_view value);   // must live until Run
    void BindBytes(int index, const QByteArray &value); // must live until Run
    // Executes the statement, then forgets all values, after an error too: a mark that isn't bound again is
    // Null.
    void Run();

private:
    friend class Database;
    struct State;
    explicit PreparedStatement(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

// An open database. Closes itself at destruction.
class Database {
public:
    struct State; // known to the facade's own sources only

    ~Database();
    Database(Database &&) noexcept;
    Database &operator=(Database &&) noexcept;

    // Full path of the file. For a database read from a foreign format it is the foreign file.
    const QString &Name() const;
    // True when the file itself is in the program's own form; false when its tables were read from a Jet file
    // into a copy, so that writes don't reach the file.
    bool IsNative() const;

    // Runs the statement, or several with ; between them, of which the first takes the parameters.
    void Execute(const QString &sql, int options = kFailOnError,
                 std::initializer_list<Parameter> parameters = {});
    Recordset OpenRecordset(const QString &sql, std::initializer_list<Parameter> parameters = {});
    PreparedStatement Prepare(const QString &sql);

    // Transactions may stand one in the other; the outermost CommitTrans writes. CommitTrans and Rollback
    // without BeginTrans are error 3034.
    void BeginTrans();
    void CommitTrans(int options = 0);
    void Rollback();
    // Lets the engine finish what it has put off.
    void Idle();

    std::vector<TableDef> TableDefs() const;
    // The definition of one table; 3265 when there is none.
    TableDef Table(const QString &name) const;
    void CreateTable(const TableDef &table);
    void AppendField(const QString &table, const Field &field);

    void Close();

private:
    friend Database OpenDatabase(const QString &path);
    friend Database OpenToRead(const QString &path);
    friend Database OpenForBuilding(const QString &path);
    friend Database CreateDatabase(const QString &path);
    friend Salvaged SalvageDatabase(const QString &path, const QStringList &tables, const QString &model);
    explicit Database(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

// Opens the file by its content: the program's own form, or Jet 3 and 4, which is read whole into a private
// copy. 3024 for a missing file, 3343 for anything else than a database, 3049 for one that is cut off or
// damaged, 3051 for a folder or a file that may not be read. A file that may only be read opens; writing to
// it is error 3027.
Database OpenDatabase(const QString &path);
// The same without ever writing to the file, and without waiting for longer than a moment where somebody else
// holds it (3045); writing is error 3027.
Database OpenToRead(const QString &path);
// Makes a new, empty database; 3204 when the file exists.
Database CreateDatabase(const QString &path);
// Opens a database of the program's own form for building a file that is not yet anyone's: no journal, no
// waiting for the disk. A crash leaves rubbish; the caller flushes (support) and swaps the file in when it is
// complete.
Database OpenForBuilding(const QString &path);
// Rewrites `source` without free space into the new file `target`. The locale, and the password behind
// ";pwd=" in it, and the option are the engine's; only the file's own form is written.
void CompactDatabase(const QString &source, const QString &target, const QString &locale, int option);

} // namespace storage
