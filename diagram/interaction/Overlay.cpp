#include "diagram/interaction/Overlay.h"

namespace diagram {

QRectF Overlay::Bounds() const {
    QRectF all = band | sizeUnder;
    if (!ghost.isEmpty()) all |= ghost.controlPointRect();
    if (!target.isEmpty()) all |= target.controlPointRect();
    if (line) all |= QRectF(line->p1(), line->p2()).normalized().adjusted(-1, -1, 1, 1);
    if (linkStart) all |= QRectF(*linkStart - QPointF(1, 1), QSizeF(2, 2));
    return all;
}

} // namespace diagram
