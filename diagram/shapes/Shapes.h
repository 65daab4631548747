// The shapes of nodes: one row each. Painting, hit testing, clipping of links, shadows, icons and pickers
// all come from the outline of the row.
#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <span>

namespace diagram {

// How a row may be painted faster than as a path; Outline gives the same form for each.
enum class ShapeForm : unsigned char { Path, Rectangle, Ellipse, Polygon };

// The look of a rectangle's edge: light and dark lines along its inside.
enum class ShapeEdge : unsigned char { None, Bump, Etched, Raised, Sunken };

// A corner of a polygon: `x` and `y` are fractions of the box's width and height, `dx` and `dy` are added as
// fractions of its shorter side (so that a cut corner stays square).
struct ShapeCorner {
    double x, y;
    double dx = 0, dy = 0;
};

// A part of a box, in fractions of its width and height.
struct BoxPart {
    double left, top, right, bottom;
};

// Stored values: plain shapes from 0 on, those of flowcharts from 50 on, nothing in between.
constexpr int kLastPlainShape = 15;
constexpr int kFirstFlowchartShape = 50;

struct ShapeRow {
    int value;                                  // stored value
    const char *name;                           // as the user reads it
    QPainterPath (*outline)(const QRectF &box); // closed, at angle 0, touching the box
    QPainterPath (*detail)(const QRectF &box);  // inner lines, painted with the border; null for none
    BoxPart textArea;                           // where text fits, at angle 0
    ShapeForm form;
    std::span<const ShapeCorner> corners; // of a polygon, at angle 0; empty for the other forms
    ShapeEdge edge = ShapeEdge::None;
};

constexpr int kMostCorners = 8;

// In the order in which pickers show them.
std::span<const ShapeRow> ShapeTable();
int LastShape(); // the value of the last row
// Null for a value that is no shape. Constant time.
const ShapeRow *FindShape(int value);

// The outline of `shape` in `box`, turned by `orientation` quarter turns clockwise (0 to 3): the form is
// built in the turned box and rotated, so that it always fills `box`. A box without width or height gives a
// degenerate, still closed path.
QPainterPath Outline(int shape, int orientation, const QRectF &box);
QPainterPath Detail(int shape, int orientation, const QRectF &box);
QRectF TextArea(int shape, int orientation, const QRectF &box);

// The corners of a polygon in `box`, turned as above, written to `corners` (room for kMostCorners); their
// number.
int TurnedCorners(const ShapeRow &row, int orientation, const QRectF &box, QPointF *corners);

// Where the straight line from `from` towards the middle of `box` meets the outline (the crossing nearest to
// `from`); the middle of the box when it doesn't.
QPointF OutlineCrossing(int shape, int orientation, const QRectF &box, const QPointF &from);

} // namespace diagram
