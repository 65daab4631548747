// The column types of the engine and the type names that stand for them in a table's definition.
#pragma once

#include "storage/text/Field.h"

#include <QRegularExpression>
#include <QString>

namespace storage {

// A type name that a definition may use. The first row of a type is the one that is written; its name also
// gives the column the library's affinity that keeps the values as they are.
struct TypeName {
    const char *name;
    FieldType type;
};

inline constexpr TypeName kTypeNames[] = {
    {"BOOLEAN", FieldType::Boolean},  {"BIT", FieldType::Boolean},       {"YESNO", FieldType::Boolean},
    {"SMALLINT", FieldType::Integer}, {"SHORT", FieldType::Integer},     {"INT2", FieldType::Integer},
    {"TINYINT", FieldType::Integer},  {"BYTE", FieldType::Integer},      {"INTEGER", FieldType::Long},
    {"INT", FieldType::Long},         {"LONG", FieldType::Long},         {"BIGINT", FieldType::Long},
    {"REAL", FieldType::Single},      {"SINGLE", FieldType::Single},     {"DOUBLE", FieldType::Double},
    {"FLOAT", FieldType::Double},     {"CURRENCY", FieldType::Currency}, {"MONEY", FieldType::Currency},
    {"DECIMAL", FieldType::Currency}, {"NUMERIC", FieldType::Currency},  {"TEXT", FieldType::Text},
    {"VARCHAR", FieldType::Text},     {"CHAR", FieldType::Text},         {"LONGTEXT", FieldType::Memo},
    {"CLOB", FieldType::Memo},        {"MEMO", FieldType::Memo},         {"LONGBLOB", FieldType::LongBinary},
    {"BLOB", FieldType::LongBinary},  {"IMAGE", FieldType::LongBinary},  {"DATETIME", FieldType::Date},
    {"TIMESTAMP", FieldType::Date},   {"DATE", FieldType::Date},
};

// The words that define a column of that type, such as TEXT(50).
inline QString DeclaredType(FieldType type, int size) {
    for (const TypeName &row : kTypeNames) {
        if (row.type != type) continue;
        const QString name = QString::fromLatin1(row.name);
        return type == FieldType::Text && size > 0 ? QStringLiteral("%1(%2)").arg(name).arg(size) : name;
    }
    return QStringLiteral("TEXT");
}

// The name as SQL text, whatever characters it has.
inline QString QuotedName(const QString &name) {
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

// The field that a column's declared type means. A type that the table does not know is Text.
inline Field ParseDeclaredType(const QString &name, const QString &declared) {
    static const QRegularExpression form(QStringLiteral("^\\s*(\\w+)[^(]*(?:\\(\\s*(\\d+))?"));
    const auto match = form.match(declared);
    const QString word = match.captured(1).toUpper();
    for (const TypeName &row : kTypeNames) {
        if (word == QLatin1String(row.name))
            return {name, row.type, row.type == FieldType::Text ? match.captured(2).toInt() : 0};
    }
    return {name, FieldType::Text, 0};
}

} // namespace storage
