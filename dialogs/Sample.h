// What a form's values look like, painted by the renderer from a surface of its own.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"

#include <QWidget>

namespace dialogs {

// Shows all of the surface in the middle, made smaller where there is no room for it.
class Sample : public QWidget {
    Q_OBJECT
public:
    QSize sizeHint() const override { return hint_; }

protected:
    // With the background colour of the surface `like`; `hint` is the smallest size, in pixels.
    Sample(const char *name, const diagram::Surface &like, QSize hint, QWidget *parent);
    void paintEvent(QPaintEvent *event) override;

    diagram::Surface &OwnSurface() { return surface_; }

private:
    QSize hint_;
    diagram::Surface surface_;
    diagram::Scene scene_;
    diagram::Renderer renderer_;
};

} // namespace dialogs
