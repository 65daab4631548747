// The icons that the bars show at their usual size, painted while the program is built: reading and painting
// the drawings of all bars would take as long as all else that a window needs until it is first seen.
#pragma once

#include "mainwindow/IconDrawing.h"

#include <cstdint>
#include <QString>
#include <span>

namespace mainwindow {

struct ReadyIcon {
    const char *name;
    IconLook look;
    const std::uint32_t *pixels; // premultiplied, row by row
};
// The lines of icons/ready.txt, each in the four looks of its sides.
std::span<const ReadyIcon> ReadyIcons();

// A null image where none is ready. The pixels are the table's own.
QImage FindReadyIcon(const QString &name, const IconLook &look);

} // namespace mainwindow
