// What comes from elsewhere made fit for a map: its levels and groups, new keys, the strip as the map shows
// it.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace diagram {
class Node;
class Surface;
} // namespace diagram
namespace document {
class clsfrmMain;
class MapWindow;
} // namespace document

namespace timeline {

// The date of the hidden node that carries what a surface file has no place for: the picture and the colour
// of the background, and the names of levels and groups.
inline const QString kDiagramDate = QStringLiteral("DIAGRAM");

// Names of levels and groups by their keys, which hold for one run of the program.
struct KeyNames {
    QHash<QString, QString> levels, groups;
};
KeyNames NamesOf(document::clsfrmMain &settings);

// Notes the names in the tag of that node, and reads them there. Without such names both are empty.
void CarryNames(diagram::Node &diagram, const KeyNames &names);
KeyNames CarriedNames(const diagram::Node &diagram);

// Rewrites the surface file so that what it holds fits the map of `Target`: each node gets the level and
// groups of the names that it had; without a name, or where the map has none of that name, the ones whose
// keys it has; where that leads to none, the first selected one. `names` says what its keys were called where
// it comes from; the file's own names come before. All nodes and links get new keys, and the months are shown
// or hidden as those of the window's slice; where that has none they stay as they are. `Surface` is for the
// work and is cleared first. The file is written to: hand over a scratch copy. Error 321 "Invalid file
// format" for what is no surface file.
void PrepFileForImport(diagram::Surface &Surface, const QString &File, document::MapWindow &Target,
                       const KeyNames &names = {});

// The same with the bytes of such a file.
QByteArray PrepBytesForImport(const QByteArray &bytes, document::MapWindow &Target,
                              const KeyNames &names = {});

} // namespace timeline
