#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

class Node;

// Shadow, fill, picture, border, inner lines.
void PaintNodeForm(Paint &paint, const Node &node);
// The form and the text.
void PaintNode(Paint &paint, const Node &node);

} // namespace diagram
