// Which nodes the ticked groups and levels leave in sight, on all slices of a map.
#pragma once

#include <QString>

namespace diagram {
class Sights;
class Surface;
} // namespace diagram

namespace document {

class cGroups;
class cLevels;

// Whether one of the keys in `sNodeGroup`, separated by commas, stands in `sGroupText` behind its first
// character. Upper and lower case are the same; empty elements are passed over.
bool NodeInGroup(const QString &sNodeGroup, const QString &sGroupText);

// The ticked groups and levels as lists of keys: ",,KEY,KEY,".
struct FilterKeys {
    QString groups;
    QString levels;
};
// From the texts of the two lists: names separated by commas. A name that stands for no member stays as it
// is, and matches no node; so does a name with a comma in it, which falls into two.
FilterKeys KeysForFilter(const QString &groupNames, const QString &levelNames, const cGroups &groups,
                         const cLevels &levels);

// Hides each node whose level isn't ticked or of whose groups none is, and shows the others; a node without
// group or level stays as it is, with its links. A link is hidden with its origin, and also with its
// destination unless that is marked. Opens no group of changes.
void ApplyFilter(diagram::Surface &surface, const FilterKeys &keys);

// What ApplyFilter would show and hide, to be painted: the surface stays as it is.
diagram::Sights PreviewFilter(const diagram::Surface &surface, const FilterKeys &keys);

} // namespace document
