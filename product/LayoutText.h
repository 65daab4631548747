// What the texts of slices need not say twice: looks that have a name, grids of nodes, and runs of links.
// Plain values in, plain values out.
#pragma once

#include <QJsonObject>
#include <QString>

namespace product {

// The text with each node and each link written out, as NodeText.h reads them.
//
// "title", "subtitle" and "note" become the nodes at the head of the page, the first two at the left
// from the corner "headAt" ([20, 20] when left out), the note at the right edge of a landscape page, in the
// looks of those names.
//
// Nodes: "box" is [x, y, w, h]. "look" names an object of looks["nodes"], whose values count where the node
// says nothing else; the colour of a level goes before the fill of a look. "cells" makes a grid of an entry:
// texts, objects with keys of their own, or null for an empty cell, row by row in "columns" columns (all in
// one row when left out) from the corner "at", with "size" [w, h] and "gap" [across, down]; w and h may each
// be a list, one number a column or row. Cells take over the other keys, and the entry's "id" with their
// number from 1 behind it.
//
// Links: "look" as above, of looks["links"]. "chain" joins each of the ids to the next one; "from" and "to"
// may be lists, which joins each to each.
//
// "\n" in texts becomes CR LF.
QJsonObject WrittenOut(const QJsonObject &slice, const QJsonObject &looks);

} // namespace product
