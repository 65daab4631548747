// The extent along the strip that a node had before an end made it a bar, kept in the node's tag until it is
// none any more.
#pragma once

#include <QRectF>
#include <QString>

namespace diagram {
class Node;
}

namespace timeline {

class OwnExtent {
public:
    // What the node's tag says, for a strip that runs to the right or down.
    OwnExtent(const diagram::Node &node, bool rightwards);

    // The node's box with its own extent again; a bar along the strip keeps the box as it is.
    QRectF Given(QRectF box, bool isBar) const;
    // What is to be stored of a node with that box; `box` is what Given gave.
    QString Stored(const QRectF &box, bool isBar) const;

private:
    QString along_; // the name of the extent along the strip
    QString which_; // the name of the extent that is stored; empty for none
    double extent_ = 0;
};

// Whether the width of the node is that of a bar, and its own is stored.
bool StoresItsWidth(const diagram::Node &node);

} // namespace timeline
