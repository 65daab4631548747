// The first half of a repair: copies every table row by row, with cells that a load takes.
#pragma once

#include "document/RepairMap.h"
#include "storage/Database.h"

#include <vector>

namespace document {

struct CellRule;
struct TableLayout;

// How a row is named to the user: "Nodes {key}", or "Nodes, row 7" where it has no key.
QString RowName(const QString &table, const QString &key, qlonglong row);

// Copies the tables of a map into an empty one.
class RepairTables {
public:
    RepairTables(storage::Database &from, storage::Database &to, std::vector<Repair> &repairs)
        : from_(from), to_(to), repairs_(repairs) {}

    void Run();

private:
    struct Column {
        int at = -1; // in the source; -1 where it is missing
        int number = 0;
        storage::FieldType type = storage::FieldType::Text;
        const CellRule *rule = nullptr;
        QString name;
    };
    void CopyTable(const TableLayout &table);
    std::vector<Column> Plan(const storage::Recordset &rows, const TableLayout &table);
    void CopyRow(const storage::Recordset &rows, const TableLayout &table, const std::vector<Column> &columns,
                 storage::PreparedStatement &insert);
    bool KeepsRow(const storage::Recordset &rows, const TableLayout &table,
                  const std::vector<Column> &columns);
    QVariant CellOf(const storage::Recordset &rows, const TableLayout &table, const Column &column);
    void Note(const storage::Recordset &rows, const TableLayout &table, const Column &column,
              const QString &wrong, const QString &remedy);

    storage::Database &from_, &to_;
    std::vector<Repair> &repairs_;
    qlonglong row_ = 0; // of the table, from 1
};

} // namespace document
