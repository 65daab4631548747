// A node as it would look on its map.
#pragma once

#include "dialogs/NodeEdit.h"
#include "dialogs/Sample.h"

namespace dialogs {

class NodeSample : public Sample {
    Q_OBJECT
public:
    // Of the node's size.
    NodeSample(const diagram::Node &oNode, QWidget *parent);

    // Paints the node with these values and that text; a long one is cut.
    void Show(const NodeEdit &edit, const QString &text);
    const diagram::Node &Node() const { return *node_; }

private:
    diagram::Node *node_;
    QRectF box_; // of the node before an automatic size, twips
};

} // namespace dialogs
