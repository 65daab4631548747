// Drawings as they may be read: on their own.
#pragma once

#include <QByteArray>

namespace diagram {

// The SVG without what it refers to outside of itself: style sheets, entities, and pictures that aren't part
// of it. Reading a drawing would otherwise open files that a stranger named. What isn't well-formed ends
// where the mistake stands.
QByteArray WithoutReferences(const QByteArray &svg);

} // namespace diagram
