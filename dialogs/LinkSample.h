// A link as it would look on its map, on a surface of its own.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"

#include <QWidget>

namespace dialogs {

class LinkSample : public QWidget {
    Q_OBJECT
public:
    // On the ground of the surface `like`.
    LinkSample(const diagram::Surface &like, QWidget *parent);

    // Paints a link with look and text of `values`; a long text is cut.
    void Show(const diagram::LinkData &values);
    const diagram::Link &Link() const { return *link_; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    diagram::Surface surface_;
    diagram::Scene scene_;
    diagram::Renderer renderer_;
    diagram::Link *link_;
};

} // namespace dialogs
