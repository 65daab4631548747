// Nodes and links as the texts of the delivered files describe them: JSON objects whose values are the names
// that the user reads, with sizes in pixels at zoom 100.
#pragma once

#include "diagram/model/Surface.h"

#include <QColor>
#include <QDir>
#include <QJsonObject>

namespace product {

// Error 5 that names the text and what is wrong with it.
[[noreturn]] void Complain(const QString &what);

support::Colour ColourOf(const QString &text); // "#RRGGBB"
diagram::Font FontOf(const QJsonObject &text);
float Twips(const QJsonValue &pixels);

// Sets what the object names: shape, shapeOrientation, drawStyle, drawWidth, border, fill, colour, shadow,
// alignment, picturePos, autoSize, xTextMargin, yTextMargin, text, event, font, transparent, hidden, marked,
// picture. A picture is a file relative to `folder`; a drawing (svg) is turned into PNG at twice its size.
void ApplyNode(diagram::Node &node, const QJsonObject &text, const QDir &folder);
// Sets style, arrows and their sizes, drawStyle, drawWidth, jumpStyle, text, colour, lineColour, font;
// `bends` are the points of its route between the ends, `way` are all of them with both ends.
void ApplyLink(diagram::Link &link, const QJsonObject &text);

} // namespace product
