// The icons that the bars show at their usual size, painted while the program is built: reading and painting
// the drawings of all bars would take as long as all else that a window needs until it is first seen.
#pragma once

#include "mainwindow/icons/IconDrawing.h"

#include <cstdint>
#include <QString>
#include <span>

namespace mainwindow {

struct ReadyIcon {
    const char *name;
    IconLook look;
    const std::uint32_t *pixels; // premultiplied, row by row
};
// For each line of icons/ready.txt and each of its sides: light and dark, enabled and disabled.
std::span<const ReadyIcon> ReadyIcons();

// A null image where none is ready. The image refers to the pixels of the table.
QImage FindReadyIcon(const QString &name, const IconLook &look);

} // namespace mainwindow
