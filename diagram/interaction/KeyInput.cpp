#include "diagram/interaction/KeyInput.h"

namespace diagram {

namespace {

struct ArrowRow {
    int key;
    int x, y;
};
constexpr ArrowRow kArrows[] = {
    {Qt::Key_Left, -1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Right, 1, 0}, {Qt::Key_Down, 0, 1}};

} // namespace

QPointF KeyInput::Arrow() const {
    for (const ArrowRow &row : kArrows)
        if (row.key == key) return QPointF(row.x, row.y);
    return {};
}

int KeyInput::Tab() const {
    if (key == Qt::Key_Backtab || (key == Qt::Key_Tab && Shift())) return -1;
    return key == Qt::Key_Tab ? 1 : 0;
}

} // namespace diagram
