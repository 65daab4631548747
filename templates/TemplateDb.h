// The template file: a database of the program's own form with one table of one record, that holds a surface
// file and an icon file. Older ones are Jet databases, which are read and never written. All errors of
// reading are those of storage::OpenToRead.
#pragma once

#include <optional>
#include <QByteArray>
#include <QString>

namespace templates {

// What stands behind the name of a template that another one has replaced.
inline const QString kKeptEnding = QStringLiteral(".bak");

// Makes an empty template file in place of whatever has that name. An empty name is filled in with that of
// TTemplate.mdb in the program's folder.
void CreateTemplateDB(QString &File);
// Makes the template file from a surface file and an icon file. It is written beside its target and swapped
// in; what it replaces is kept under its name with .bak behind it.
void CreateTemplate(const QString &MapFile, const QString &IconFile, const QString &OutputFile);

// The bytes in MAP and in IMAGE; none for a database without the table or without a record. 3265 for a table
// that lacks the field.
std::optional<QByteArray> ReadMap(const QString &file);
std::optional<QByteArray> ReadImage(const QString &file);

// Whether the bytes are an icon file.
bool IsIcon(const QByteArray &bytes);

} // namespace templates
