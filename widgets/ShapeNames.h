// The shapes as they are called where one is chosen for a new node.
#pragma once

#include <QString>
#include <vector>

namespace widgets {

// The stored value of a shape and the caption that the user reads.
struct ShapeName {
    int value;
    QString caption;
};

// All of them, in the order in which they are listed.
std::vector<ShapeName> ShapeNames();
// Empty for a value that is no shape.
QString ShapeCaption(int value);

} // namespace widgets
