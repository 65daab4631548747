// The rows of the shape table with their forms. A form is built at angle 0 from the box alone.
#include "diagram/shapes/Shapes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace diagram {

namespace {

double Side(const QRectF &box) { return std::min(box.width(), box.height()); }
QPointF At(const QRectF &box, double x, double y) {
    return {box.left() + x * box.width(), box.top() + y * box.height()};
}

// Polygons

constexpr ShapeCorner kLosange[] = {{.5, 0}, {1, .5}, {.5, 1}, {0, .5}};
constexpr ShapeCorner kNorthTriangle[] = {{.5, 0}, {1, 1}, {0, 1}};
constexpr ShapeCorner kSouthTriangle[] = {{0, 0}, {1, 0}, {.5, 1}};
constexpr ShapeCorner kEastTriangle[] = {{0, 0}, {1, .5}, {0, 1}};
constexpr ShapeCorner kWestTriangle[] = {{1, 0}, {1, 1}, {0, .5}};
constexpr ShapeCorner kHexagon[] = {{.25, 0}, {.75, 0}, {1, .5}, {.75, 1}, {.25, 1}, {0, .5}};
constexpr ShapeCorner kTriangle[] = {{.25, 0}, {1, 1}, {0, 1}}; // three different sides
constexpr ShapeCorner kPentagon[] = {{.5, 0}, {1, .382}, {.809, 1}, {.191, 1}, {0, .382}};
constexpr double kCut = .2929; // of a regular octagon
constexpr ShapeCorner kOctogon[] = {{0, 0, kCut, 0},  {1, 0, -kCut, 0}, {1, 0, 0, kCut},  {1, 1, 0, -kCut},
                                    {1, 1, -kCut, 0}, {0, 1, kCut, 0},  {0, 1, 0, -kCut}, {0, 0, 0, kCut}};
constexpr ShapeCorner kData[] = {{.2, 0}, {1, 0}, {.8, 1}, {0, 1}};
constexpr ShapeCorner kPreparation[] = {{0, 0, .4, 0},  {1, 0, -.4, 0}, {1, .5},
                                        {1, 1, -.4, 0}, {0, 1, .4, 0},  {0, .5}};
constexpr ShapeCorner kManualInput[] = {{0, .25}, {1, 0}, {1, 1}, {0, 1}};
constexpr ShapeCorner kManualOperation[] = {{0, 0}, {1, 0}, {.8, 1}, {.2, 1}};
constexpr ShapeCorner kOffPage[] = {{0, 0}, {1, 0}, {1, .75}, {.5, 1}, {0, .75}};
constexpr ShapeCorner kCard[] = {{0, 0, .25, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0, 0, .25}};
constexpr ShapeCorner kCollate[] = {{0, 0}, {1, 0}, {.5, .5}, {1, 1}, {0, 1}, {.5, .5}};

template <const auto &kCorners>
QPainterPath Polygon(const QRectF &box) {
    const double side = Side(box);
    QPainterPath path;
    for (const ShapeCorner &corner : kCorners) {
        const QPointF point = At(box, corner.x, corner.y) + QPointF(corner.dx, corner.dy) * side;
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

// Outlines with curves

QPainterPath Rectangle(const QRectF &box) {
    QPainterPath path;
    path.addRect(box);
    if (path.isEmpty()) path.addPolygon(QPolygonF(box)); // a box without size keeps its corners
    return path;
}

// Like addEllipse, which leaves out a box without size.
QPainterPath Ellipse(const QRectF &box) {
    QPainterPath path(QPointF(box.right(), box.center().y()));
    path.arcTo(box, 0, 360);
    path.closeSubpath();
    return path;
}

// Corners of the radius `radius`, in fractions of the shorter side.
QPainterPath Rounded(const QRectF &box, double radius) {
    const double d = 2 * radius * Side(box);
    QPainterPath path(QPointF(box.left() + d / 2, box.top()));
    path.arcTo(QRectF(box.right() - d, box.top(), d, d), 90, -90);
    path.arcTo(QRectF(box.right() - d, box.bottom() - d, d, d), 0, -90);
    path.arcTo(QRectF(box.left(), box.bottom() - d, d, d), 270, -90);
    path.arcTo(QRectF(box.left(), box.top(), d, d), 180, -90);
    path.closeSubpath();
    return path;
}

QPainterPath RoundRectangle(const QRectF &box) { return Rounded(box, .25); }
QPainterPath AlternateProcess(const QRectF &box) { return Rounded(box, .15); }
QPainterPath Termination(const QRectF &box) { return Rounded(box, .5); }

// A wave of one cubic curve from the path's point to (x, y): first up, then down by `height` of the box for a
// way to the left, the other way round for a way to the right. The factor makes its extremes lie at just that
// height.
void AddWave(QPainterPath &path, const QRectF &box, double fromX, double toX, double y, double height) {
    const double pull = (toX < fromX ? height : -height) / 0.28867513459481287;
    path.cubicTo(At(box, fromX + (toX - fromX) / 3, y - pull),
                 At(box, fromX + (toX - fromX) * 2 / 3, y + pull), At(box, toX, y));
}

QPainterPath Document(const QRectF &box) {
    QPainterPath path(box.topLeft());
    path.lineTo(box.topRight());
    path.lineTo(At(box, 1, .9));
    AddWave(path, box, 1, 0, .9, .1);
    path.closeSubpath();
    return path;
}

constexpr double kSheet = .07; // offset of a sheet against the one before it
constexpr double kSheetEnd = .91, kSheetLift = .03;

QPainterPath MultiDocument(const QRectF &box) {
    QPainterPath path(At(box, 0, 2 * kSheet));
    path.lineTo(At(box, kSheet, 2 * kSheet));
    path.lineTo(At(box, kSheet, kSheet));
    path.lineTo(At(box, 2 * kSheet, kSheet));
    path.lineTo(At(box, 2 * kSheet, 0));
    path.lineTo(At(box, 1, 0));
    path.lineTo(At(box, 1, kSheetEnd - 2 * kSheet));
    path.lineTo(At(box, 1 - kSheet, kSheetEnd - 2 * kSheet - kSheetLift));
    path.lineTo(At(box, 1 - kSheet, kSheetEnd - kSheet));
    path.lineTo(At(box, 1 - 2 * kSheet, kSheetEnd - kSheet - kSheetLift));
    path.lineTo(At(box, 1 - 2 * kSheet, kSheetEnd));
    AddWave(path, box, 1 - 2 * kSheet, 0, kSheetEnd, 1 - kSheetEnd);
    path.closeSubpath();
    return path;
}

QPainterPath PunchedTape(const QRectF &box) {
    constexpr double kHeight = .1;
    QPainterPath path(At(box, 0, kHeight));
    AddWave(path, box, 0, 1, kHeight, kHeight);
    path.lineTo(At(box, 1, 1 - kHeight));
    AddWave(path, box, 1, 0, 1 - kHeight, kHeight);
    path.closeSubpath();
    return path;
}

constexpr double kBulge = .12; // of the width, for sides that are curved

QPainterPath StoredData(const QRectF &box) {
    const double bulge = 2 * kBulge * box.width();
    QPainterPath path(At(box, kBulge, 0));
    path.lineTo(box.topRight());
    path.arcTo(QRectF(box.right() - bulge / 2, box.top(), bulge, box.height()), 90, 180);
    path.lineTo(At(box, kBulge, 1));
    path.arcTo(QRectF(box.left(), box.top(), bulge, box.height()), 270, -180);
    path.closeSubpath();
    return path;
}

QPainterPath Delay(const QRectF &box) {
    const double round = Side(box);
    QPainterPath path(box.topLeft());
    path.lineTo(box.right() - round / 2, box.top());
    path.arcTo(QRectF(box.right() - round, box.top(), round, box.height()), 90, -180);
    path.lineTo(box.bottomLeft());
    path.closeSubpath();
    return path;
}

// An ellipse that runs out into a tail at the right bottom.
QPainterPath SequentialAccess(const QRectF &box) {
    constexpr double kTailAngle = 45,
                     kTailTop = .8535533905932737; // the ellipse at 45 degrees below the middle
    QPainterPath path(At(box, .5, 1));
    path.arcTo(box, 270, -(360 - (90 - kTailAngle)));
    path.lineTo(At(box, 1, kTailTop));
    path.lineTo(At(box, 1, 1));
    path.closeSubpath();
    return path;
}

double Rim(double along, double across) { return std::min(.3 * along, .3 * across); }

QPainterPath MagneticDisk(const QRectF &box) {
    const double rim = Rim(box.height(), box.width());
    QPainterPath path(QPointF(box.left(), box.top() + rim / 2));
    path.arcTo(QRectF(box.left(), box.top(), box.width(), rim), 180, -180);
    path.arcTo(QRectF(box.left(), box.bottom() - rim, box.width(), rim), 0, -180);
    path.closeSubpath();
    return path;
}

QPainterPath DirectAccess(const QRectF &box) {
    const double rim = Rim(box.width(), box.height());
    QPainterPath path(QPointF(box.left() + rim / 2, box.top()));
    path.arcTo(QRectF(box.right() - rim, box.top(), rim, box.height()), 90, -180);
    path.arcTo(QRectF(box.left(), box.top(), rim, box.height()), 270, -180);
    path.closeSubpath();
    return path;
}

QPainterPath Display(const QRectF &box) {
    constexpr double kPoint = .17;
    const double round = 2 * kBulge * box.width();
    QPainterPath path(At(box, 0, .5));
    path.quadTo(At(box, kPoint / 3, .12), At(box, kPoint, 0));
    path.lineTo(box.right() - round / 2, box.top());
    path.arcTo(QRectF(box.right() - round, box.top(), round, box.height()), 90, -180);
    path.lineTo(At(box, kPoint, 1));
    path.quadTo(At(box, kPoint / 3, .88), At(box, 0, .5));
    path.closeSubpath();
    return path;
}

// Inner lines

void AddLine(QPainterPath &path, const QPointF &from, const QPointF &to) {
    path.moveTo(from);
    path.lineTo(to);
}

QPainterPath PredefinedProcessLines(const QRectF &box) {
    QPainterPath path;
    AddLine(path, At(box, .1, 0), At(box, .1, 1));
    AddLine(path, At(box, .9, 0), At(box, .9, 1));
    return path;
}

QPainterPath InternalStorageLines(const QRectF &box) {
    const QPointF inset = QPointF(.2, .2) * Side(box);
    QPainterPath path;
    AddLine(path, {box.left(), box.top() + inset.y()}, {box.right(), box.top() + inset.y()});
    AddLine(path, {box.left() + inset.x(), box.top()}, {box.left() + inset.x(), box.bottom()});
    return path;
}

QPainterPath MultiDocumentLines(const QRectF &box) {
    QPainterPath path(At(box, kSheet, 2 * kSheet));
    path.lineTo(At(box, 1 - 2 * kSheet, 2 * kSheet));
    path.lineTo(At(box, 1 - 2 * kSheet, kSheetEnd - kSheet - kSheetLift));
    path.moveTo(At(box, 2 * kSheet, kSheet));
    path.lineTo(At(box, 1 - kSheet, kSheet));
    path.lineTo(At(box, 1 - kSheet, kSheetEnd - 2 * kSheet - kSheetLift));
    return path;
}

QPainterPath CrossLines(const QRectF &box) {
    constexpr double kNear = .14644660940672627, kFar = 1 - kNear; // the ellipse at 45 degrees
    QPainterPath path;
    AddLine(path, At(box, kNear, kNear), At(box, kFar, kFar));
    AddLine(path, At(box, kFar, kNear), At(box, kNear, kFar));
    return path;
}

QPainterPath MiddleLine(const QRectF &box) {
    QPainterPath path;
    AddLine(path, At(box, 0, .5), At(box, 1, .5));
    return path;
}

QPainterPath PlusLines(const QRectF &box) {
    QPainterPath path = MiddleLine(box);
    AddLine(path, At(box, .5, 0), At(box, .5, 1));
    return path;
}

QPainterPath DiskRim(const QRectF &box) {
    const double rim = Rim(box.height(), box.width());
    QPainterPath path(QPointF(box.left(), box.top() + rim / 2));
    path.arcTo(QRectF(box.left(), box.top(), box.width(), rim), 180, 180);
    return path;
}

QPainterPath DrumRim(const QRectF &box) {
    const double rim = Rim(box.width(), box.height());
    QPainterPath path(QPointF(box.right() - rim / 2, box.top()));
    path.arcTo(QRectF(box.right() - rim, box.top(), rim, box.height()), 90, 180);
    return path;
}

// Where text fits

constexpr BoxPart kAll{0, 0, 1, 1};
constexpr BoxPart kInEllipse{.1464, .1464, .8536, .8536};
constexpr BoxPart kInRounded{.04, .04, .96, .96};
constexpr BoxPart kInLosange{.2, .25, .8, .75};
constexpr BoxPart kInNorthTriangle{.22, .45, .78, 1};
constexpr BoxPart kInSouthTriangle{.22, 0, .78, .55};

template <const auto &kCorners>
constexpr ShapeRow PolygonRow(int value, const char *name, const BoxPart &text,
                              QPainterPath (*detail)(const QRectF &) = nullptr) {
    return {value, name, Polygon<kCorners>, detail, text, ShapeForm::Polygon, kCorners, ShapeEdge::None};
}

constexpr ShapeRow RectangleRow(int value, const char *name, const BoxPart &text = kAll,
                                QPainterPath (*detail)(const QRectF &) = nullptr,
                                ShapeEdge edge = ShapeEdge::None) {
    return {value, name, Rectangle, detail, text, ShapeForm::Rectangle, {}, edge};
}

constexpr ShapeRow EllipseRow(int value, const char *name, QPainterPath (*detail)(const QRectF &) = nullptr) {
    return {value, name, Ellipse, detail, kInEllipse, ShapeForm::Ellipse, {}, ShapeEdge::None};
}

constexpr ShapeRow PathRow(int value, const char *name, QPainterPath (*outline)(const QRectF &),
                           const BoxPart &text, QPainterPath (*detail)(const QRectF &) = nullptr) {
    return {value, name, outline, detail, text, ShapeForm::Path, {}, ShapeEdge::None};
}

// "Losange", "Octogon", "Preperation" and "PunchedTape" are spelled as users and old maps know them.
constexpr std::array kShapes{
    EllipseRow(0, "Ellipse"),
    RectangleRow(1, "Rectangle"),
    PathRow(2, "Round Rectangle", RoundRectangle, kInRounded),
    PolygonRow<kLosange>(3, "Losange", kInLosange),
    PolygonRow<kNorthTriangle>(4, "North Triangle", kInNorthTriangle),
    PolygonRow<kSouthTriangle>(5, "South Triangle", kInSouthTriangle),
    PolygonRow<kEastTriangle>(6, "East Triangle", {0, .22, .55, .78}),
    PolygonRow<kWestTriangle>(7, "West Triangle", {.45, .22, 1, .78}),
    PolygonRow<kHexagon>(8, "Hexagon", {.14, .12, .86, .88}),
    RectangleRow(9, "Rectangle Edge Bump", kAll, nullptr, ShapeEdge::Bump),
    RectangleRow(10, "Rectangle Edge Etched", kAll, nullptr, ShapeEdge::Etched),
    RectangleRow(11, "Rectangle Edge Raised", kAll, nullptr, ShapeEdge::Raised),
    RectangleRow(12, "Rectangle Edge Sunken", kAll, nullptr, ShapeEdge::Sunken),
    PolygonRow<kTriangle>(13, "Triangle", {.14, .45, .6, 1}),
    PolygonRow<kPentagon>(14, "Pentagon", {.16, .3, .84, .95}),
    PolygonRow<kOctogon>(15, "Octogon", {.1, .1, .9, .9}),
    RectangleRow(50, "Process"),
    PathRow(51, "Alternate Process", AlternateProcess, kInRounded),
    PolygonRow<kLosange>(52, "Decision", kInLosange),
    PolygonRow<kData>(53, "Data", {.18, 0, .82, 1}),
    RectangleRow(54, "Predefined Process", {.1, 0, .9, 1}, PredefinedProcessLines),
    RectangleRow(55, "Internal Storage", {.15, .2, 1, 1}, InternalStorageLines),
    PathRow(56, "Document", Document, {0, 0, 1, .82}),
    PathRow(57, "Multi Document", MultiDocument, {0, 2 * kSheet, 1 - 2 * kSheet, .84}, MultiDocumentLines),
    PathRow(58, "Termination", Termination, {.08, .04, .92, .96}),
    PolygonRow<kPreparation>(59, "Preperation", {.12, .04, .88, .96}),
    PolygonRow<kManualInput>(60, "Manual Input", {0, .22, 1, 1}),
    PolygonRow<kManualOperation>(61, "Manual Operation", {.16, 0, .84, 1}),
    EllipseRow(62, "Connector"),
    PolygonRow<kOffPage>(63, "Off Page Connection", {0, 0, 1, .78}),
    PolygonRow<kCard>(64, "Card", {.05, .08, 1, 1}),
    PathRow(65, "PunchedTape", PunchedTape, {0, .18, 1, .82}),
    EllipseRow(66, "Summing Junction", CrossLines),
    EllipseRow(67, "Or", PlusLines),
    PolygonRow<kCollate>(68, "Collate", {.2, 0, .8, .3}),
    PolygonRow<kLosange>(69, "Sort", kInLosange, MiddleLine),
    PolygonRow<kNorthTriangle>(70, "Extract", kInNorthTriangle),
    PolygonRow<kSouthTriangle>(71, "Merge", kInSouthTriangle),
    PathRow(72, "Stored Data", StoredData, {.08, 0, .88, 1}),
    PathRow(73, "Delay", Delay, {0, .05, .88, .95}),
    PathRow(74, "Sequential Access", SequentialAccess, kInEllipse),
    PathRow(75, "Magnetic Disk", MagneticDisk, {0, .28, 1, .94}, DiskRim),
    PathRow(76, "Direct Access Storage", DirectAccess, {.06, 0, .78, 1}, DrumRim),
    PathRow(77, "Display", Display, {.14, .04, .9, .96}),
};

constexpr bool Fits(const ShapeRow &row) {
    if (!row.name || !*row.name || !row.outline) return false;
    if ((row.form == ShapeForm::Polygon) != (row.corners.size() >= 3 && row.corners.size() <= kMostCorners))
        return false;
    const BoxPart &text = row.textArea;
    return text.left >= 0 && text.top >= 0 && text.right <= 1 && text.bottom <= 1 && text.left < text.right &&
           text.top < text.bottom;
}

constexpr int kGap = kFirstFlowchartShape - kLastPlainShape - 1; // values that are no shapes

constexpr bool IsWhole() {
    for (std::size_t i = 0; i < kShapes.size(); ++i) {
        const int value = int(i) <= kLastPlainShape ? int(i) : int(i) + kGap;
        if (kShapes[i].value != value || !Fits(kShapes[i])) return false;
        for (std::size_t k = 0; k < i; ++k)
            if (std::string_view(kShapes[i].name) == kShapes[k].name) return false;
    }
    return true;
}
#ifndef __SANITIZE_ADDRESS__ // with it GCC can't compare addresses of functions in constants
static_assert(IsWhole());
#endif

} // namespace

std::span<const ShapeRow> ShapeTable() { return kShapes; }
int LastShape() { return kShapes.back().value; }

const ShapeRow *FindShape(int value) {
    if (value >= 0 && value <= kLastPlainShape) return &kShapes[std::size_t(value)];
    if (value >= kFirstFlowchartShape && value <= LastShape()) return &kShapes[std::size_t(value - kGap)];
    return nullptr;
}

} // namespace diagram
