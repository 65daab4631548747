// A node in the middle of a small surface of its own, that the user can make larger and smaller.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"

#include <QWidget>

namespace timeline {

class SampleView : public QWidget {
    Q_OBJECT
public:
    explicit SampleView(QWidget *parent);

    diagram::Surface &Model() { return surface_; }
    // Shows that node; it is kept in the middle from now on.
    void SetNode(diagram::Node &node);
    // Paints what the node has become, again in the middle.
    void Refresh();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Centre();
    void SetNodeSize(double width, double height);
    // Which edges of the node lie under the pointer.
    Qt::Orientations EdgesAt(const QPointF &pixels) const;
    QRectF NodeBox() const; // pixels

    diagram::Surface surface_;
    diagram::Scene scene_;
    diagram::Renderer renderer_;
    diagram::Node *node_ = nullptr;
    Qt::Orientations dragged_;
};

} // namespace timeline
