// Text and picture of a node.
#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Node;

// Where text may stand: the shape's text area less border and margins, in twips.
QRectF TextRoom(const Node &node);

// Where the lines of its text stand, and where its picture, in twips, whether they have room or not.
// TextPlace is empty without a text; for PicturePlace the node must have a picture.
QRectF TextPlace(TextCache &texts, const Node &node);
QRectF PicturePlace(TextCache &texts, const Node &node);

// Whether the end of the text isn't shown. Both texts count while the surface shows both.
bool IsTextCut(TextCache &texts, const Node &node);

// Text that is too small to be read is left out. One that is higher than the node's box ends with its last
// whole line and an ellipsis. A picture that is larger than the node is cut off at the outline.
void PaintNodeText(Paint &paint, const Node &node);
void PaintNodePicture(Paint &paint, const Node &node);

// The lines of `block` in a width of `width` twips from the device point `at`. `side` as in PlaceOf.
void DrawBlock(Paint &paint, const TextBlock &block, const QPointF &at, double width, int side, QRgb colour);

// An alignment or picture position taken apart: across 0 left, 1 right, 2 middle; down 0 top, 1 middle, 2
// bottom.
struct Place {
    int across, down;
};
constexpr Place PlaceOf(int value) { return {value / 3, value % 3}; }

} // namespace diagram
