// The icon of a template, drawn from its slice.
#pragma once

#include <QByteArray>
#include <QImage>

namespace diagram {
class Surface;
}

namespace templates {

// An icon file of the slice, with a picture for each usual size: a small page with its forms in stronger
// colours, without texts. The surface stays as it is.
QByteArray IconFromDrawing(const diagram::Surface &surface);

// One of its pictures, a square of that many pixels.
QImage DrawnIcon(const diagram::Surface &surface, int size);

} // namespace templates
