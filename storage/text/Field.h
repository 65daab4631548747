// The columns of tables.
#pragma once

#include <QString>

namespace storage {

enum class FieldType { Boolean, Integer, Long, Single, Double, Currency, Text, Memo, LongBinary, Date };

// A column of a table definition.
struct Field {
    QString name;
    FieldType type = FieldType::Text;
    int size = 0; // characters; 0 for the type's default
};

} // namespace storage
