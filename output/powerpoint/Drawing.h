// The elements of DrawingML (ECMA-376 part 1, chapters 20 and 21) that slides are made of. Lengths are EMU:
// 12700 a point.
#pragma once

#include "diagram/model/Font.h"
#include "output/package/Xml.h"

#include <QPainterPath>
#include <QRectF>
#include <QRgb>
#include <vector>

namespace powerpoint {

constexpr double kEmuPerPoint = 12700;

inline qint64 Emu(double length) { return qRound64(length); }

// Opens the root of a part that holds shapes, with the namespaces that these need.
void OpenPart(package::Xml &xml, const char *root);

// How a line looks. One that isn't drawn, or is of the transparent style, is written as no line.
struct LineLook {
    QRgb colour = 0;
    double width = 9525; // EMU; a pixel
    int style = 0;       // of the line styles' table
    bool drawn = true;
};

// How a shape is flipped in its rectangle and then turned about its middle.
struct Flips {
    bool across = false, down = false;
    bool quarterTurn = false; // clockwise
};
// `rectangle` as a:xfrm.
void WriteTransform(package::Xml &xml, const QRectF &rectangle, const Flips &flips = {});
// A shape that the format has by name, with its adjustments.
void WritePreset(package::Xml &xml, const QString &shape, const std::vector<int> &adjusts = {});

// A form that the format has no name for. All in coordinates of the slide; `box` is the rectangle of the
// shape.
struct CustomForm {
    QRectF box = {};
    QPainterPath outline = {};       // filled and stroked
    QPainterPath lines = {};         // stroked only
    QRectF text = {};                // where text stands; empty for the whole box
    std::vector<QPointF> sites = {}; // where connectors are glued
    bool filled = true;
};
void WriteCustom(package::Xml &xml, const CustomForm &form);

void WriteFill(package::Xml &xml, QRgb colour, int percent = 100);
void WriteNoFill(package::Xml &xml);
// A head at an end of a line, in the format's words; none without a kind.
struct LineEnd {
    const char *kind = nullptr;
    const char *width = "med";
    const char *length = "med";
};
void WriteLine(package::Xml &xml, const LineLook &line, const LineEnd &start = {}, const LineEnd &end = {});
void WriteShadow(package::Xml &xml, QRgb colour, const QPointF &offset);

struct TextLook {
    diagram::Font font;
    QRgb colour = 0;
    double scale = 1; // of the font
    int across = 2;   // 0 left, 1 right, 2 middle
    int down = 1;     // 0 top, 1 middle, 2 bottom
    QMarginsF insets; // EMU
    bool wraps = true;
    double shrink = 1; // of the font until the text is edited, where it is too high for its room
};
// p:txBody of a shape: a paragraph for each line of the text.
void WriteTextBody(package::Xml &xml, const QString &text, const TextLook &look);
// p:txBody of a placeholder, which takes its looks from the layout.
void WritePlainBody(package::Xml &xml, const QString &text);

// The lines of a text: CR, LF and both together end one.
QStringList LinesOf(const QString &text);

} // namespace powerpoint
