// Finds and replaces texts over all slices of a map.
#pragma once

#include "diagram/model/Item.h"

#include <functional>
#include <QStringList>
#include <vector>

namespace diagram {
class Node;
}

namespace document {

class cGroups;
class cLevels;
class SurfaceArray;

struct FindOptions {
    bool matchCase = false;
    bool wholeWords = false;
};

// A node or link that holds the text somewhere.
struct FindHit {
    int slice = 0; // slot of its surface
    diagram::ItemKind kind = diagram::ItemKind::Node;
    diagram::ItemId item = diagram::kNoItem;
    friend bool operator==(const FindHit &, const FindHit &) = default;
};

// Further texts by which a node is found, such as its date.
using FurtherTexts = std::function<QStringList(const diagram::Node &node)>;

// The nodes whose text or second text, or the name of whose level or of one of whose groups, or one of whose
// further texts holds `text`, and the links whose label does: slice by slice, from the top down and from left
// to right. What is hidden or cannot be selected is passed over. Nothing for an empty text.
std::vector<FindHit> FindText(const SurfaceArray &surfaces, const cGroups &groups, const cLevels &levels,
                              const QString &text, const FindOptions &options,
                              const FurtherTexts &further = {});

// Puts `with` in the place of `text`, in the texts, second texts and labels of the hits: one group of changes
// a slice. Names of levels and groups and further texts stay. Gives the number of places changed.
int ReplaceText(const SurfaceArray &surfaces, const std::vector<FindHit> &hits, const QString &text,
                const QString &with, const FindOptions &options);

} // namespace document
