// SVG drawings without references to the outside, so that they can be read safely.
#pragma once

#include <QByteArray>

namespace diagram {

// The SVG without what it refers to outside of itself: style sheets, entities, and pictures that aren't part
// of it. Otherwise the reader would open whatever files the drawing names. An SVG that isn't well-formed is
// cut off at the mistake.
QByteArray WithoutReferences(const QByteArray &svg);

} // namespace diagram
