// The delivered files from their texts: the template, the default node files and maps.
#pragma once

#include <QDir>
#include <QString>

namespace product {

// The template that maps start from. `text` is a JSON file with the arrays "levels" (name, colour, selected)
// and "groups" (name, selected).
void BuildTemplate(const QString &text, const QString &target);
// A surface file that holds the one node of the JSON file, hidden and not selectable.
void BuildDefaultNode(const QString &text, const QString &target);
// A map of the slices of the JSON file (SliceText.h), saved by the program's own DoSave. The template of the
// program's folder gives the levels and groups; pictures and attachments are found in `resources`. A node's
// "hyperlink" names the slice (from 1) and the id of a node, "attachments" a "file" each, and whether to
// "embed" it.
void BuildMap(const QString &text, const QDir &resources, const QString &target);

} // namespace product
