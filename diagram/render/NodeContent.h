// Text and picture of a node.
#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Node;

// Where text may stand: the shape's text area less border and margins, in twips.
QRectF TextRoom(const Node &node);

// Where the lines of its text stand, and its picture, in twips, whether they have room or not. Empty without
// text; the picture must not be null.
QRectF TextPlace(TextCache &texts, const Node &node);
QRectF PicturePlace(TextCache &texts, const Node &node);

// Whether the text doesn't stand there to its end. Both texts while the surface shows both.
bool IsTextCut(TextCache &texts, const Node &node);

// Both texts while the surface shows both. Left out when it can't be read. A text that is higher than the
// node's box ends with its last whole line and an ellipsis; what sticks out of the picture is cut off.
void PaintNodeText(Paint &paint, const Node &node);
void PaintNodePicture(Paint &paint, const Node &node);

// The lines of `block` in a width of `width` twips from the device point `at`. `side` as in PlaceOf.
void DrawBlock(Paint &paint, const TextBlock &block, const QPointF &at, double width, int side, QRgb colour);

// The part of an alignment or picture place: across 0 left, 1 right, 2 middle; down 0 top, 1 middle, 2
// bottom.
struct Place {
    int across, down;
};
constexpr Place PlaceOf(int value) { return {value / 3, value % 3}; }

} // namespace diagram
