// The pictures of the look bar: of the values to choose, and of what a selection has.
#pragma once

#include "mainwindow/look/Look.h"

#include <optional>
#include <QIcon>
#include <QSize>
#include <QString>

namespace widgets {
enum class ListOf;
}

namespace mainwindow {

// The list that the values come from; none for colours.
std::optional<widgets::ListOf> ListOfLook(LookOf what);
bool IsColour(LookOf what);

// How the value is spoken of.
QString NameOfLook(const LookRow &row, double value);
QIcon PictureOfLook(const LookRow &row, double value);

// For the button: its drawing with a bar of the colour below, or the value's picture. Where the selection
// differs, a hatched bar, or the drawing in an empty frame of dashes.
QIcon ButtonPicture(const LookRow &row, const LookState &state);
QSize ButtonPictureSize(LookOf what); // pixels

} // namespace mainwindow
