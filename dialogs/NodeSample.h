// A node as it would look on its map, on a surface of its own.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "dialogs/NodeEdit.h"

#include <QWidget>

namespace dialogs {

class NodeSample : public QWidget {
    Q_OBJECT
public:
    // Of the node's size, on the ground of its surface.
    NodeSample(const diagram::Node &oNode, QWidget *parent);

    // Paints the node with these values and that text; a long one is cut.
    void Show(const NodeEdit &edit, const QString &text);
    const diagram::Node &Node() const { return *node_; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    diagram::Surface surface_;
    diagram::Scene scene_;
    diagram::Renderer renderer_;
    diagram::Node *node_;
    QRectF box_; // as the node had it at first, twips
};

} // namespace dialogs
