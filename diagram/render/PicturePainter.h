#pragma once

#include "diagram/render/Paint.h"

namespace diagram {

// The whole picture in `place` (twips).
void DrawPicture(Paint &paint, const Picture &picture, const QRectF &place);

} // namespace diagram
