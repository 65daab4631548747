#include "diagram/shapes/Arrows.h"

#include "diagram/geometry/Units.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace diagram {

namespace {

// Tangents of the half angles and of the whole ones; std::tan is not constexpr.
constexpr double HalfTan(int degrees) {
    return degrees == 15 ? 0.13165249758739583 : degrees == 30 ? 0.2679491924311227 : 0.41421356237309503;
}
constexpr double FullTan(int degrees) {
    return degrees == 15 ? 0.2679491924311227 : degrees == 30 ? 0.5773502691896257 : 1.0;
}

constexpr double kCircle = 0.3;    // radius of the circles
constexpr double kNotch = 0.62;    // how far from the tip the back of a fork is notched
constexpr double kHalfArrow = 0.8; // length of a half arrow

QPainterPath Polygon(std::initializer_list<QPointF> points) {
    QPainterPath path(*points.begin());
    for (auto at = points.begin() + 1; at != points.end(); ++at) path.lineTo(*at);
    path.closeSubpath();
    return path;
}

void AddLine(QPainterPath &path, const QPointF &from, const QPointF &to) {
    path.moveTo(from);
    path.lineTo(to);
}

QPainterPath Circle() {
    QPainterPath path;
    path.addEllipse(QPointF(-kCircle, 0), kCircle, kCircle);
    return path;
}

template <int kDegrees>
QPainterPath Arrow() {
    return Polygon({{0, 0}, {-1, -HalfTan(kDegrees)}, {-1, HalfTan(kDegrees)}});
}

template <int kDegrees>
QPainterPath OpenArrow() {
    QPainterPath path(QPointF(-1, -HalfTan(kDegrees)));
    path.lineTo(0, 0);
    path.lineTo(-1, HalfTan(kDegrees));
    return path;
}

template <int kDegrees>
QPainterPath HalfArrow() {
    return Polygon({{0, 0}, {-kHalfArrow, -kHalfArrow * FullTan(kDegrees)}, {-kHalfArrow, 0}});
}

template <int kDegrees>
QPainterPath Losange() {
    return Polygon({{0, 0}, {-0.5, -0.5 * HalfTan(kDegrees)}, {-1, 0}, {-0.5, 0.5 * HalfTan(kDegrees)}});
}

QPainterPath Fork() { return Polygon({{0, 0}, {-1, -HalfTan(30)}, {-kNotch, 0}, {-1, HalfTan(30)}}); }

// A fork whose back is closed by a bar; the notch stays open in the filled one.
QPainterPath ClosedFork() {
    QPainterPath path = Fork();
    path.addPath(Polygon({{-kNotch, 0}, {-1, -HalfTan(30)}, {-1, HalfTan(30)}}));
    return path;
}

// A foot with three toes on the node's side, from `heel` on the line.
void AddFoot(QPainterPath &path, double heel) {
    path.moveTo(0, heel * HalfTan(45));
    path.lineTo(heel, 0);
    path.lineTo(0, -heel * HalfTan(45));
    AddLine(path, {heel, 0}, {0, 0});
}

QPainterPath Many() {
    QPainterPath path;
    AddFoot(path, -1);
    return path;
}

QPainterPath ManyOptional() {
    QPainterPath path;
    AddFoot(path, -1);
    path.addEllipse(QPointF(-1 - kCircle, 0), kCircle, kCircle);
    return path;
}

// Seen from the tip, a bar spans the angle that the head's name tells.
void AddBar(QPainterPath &path, double x, double half) { AddLine(path, {x, -half}, {x, half}); }

QPainterPath One() {
    QPainterPath path;
    AddLine(path, {-1, 0}, {0, 0});
    AddBar(path, -0.8, 0.8 * HalfTan(30));
    return path;
}

QPainterPath OneOptional() {
    QPainterPath path;
    AddLine(path, {-0.8, 0}, {0, 0});
    AddBar(path, -0.8, 0.8 * HalfTan(30));
    path.addEllipse(QPointF(-0.8 - kCircle, 0), kCircle, kCircle);
    return path;
}

QPainterPath OneOrMany() {
    QPainterPath path;
    AddFoot(path, -1);
    AddBar(path, -1.15, HalfTan(45));
    return path;
}

constexpr ArrowFill kNone = ArrowFill::None;
constexpr ArrowFill kLine = ArrowFill::Line;
constexpr ArrowFill kPaper = ArrowFill::Paper;

constexpr ArrowRow kArrows[] = {
    {0, "No Arrow", nullptr, kNone, 0},
    {1, "Filled Circle", Circle, kLine, kCircle},
    {2, "Empty Circle", Circle, kPaper, 2 * kCircle},
    {3, "Filled Arrow 15", Arrow<15>, kLine, 0.9},
    {4, "Empty Arrow 15", Arrow<15>, kPaper, 1},
    {5, "Filled Arrow 30", Arrow<30>, kLine, 0.9},
    {6, "Empty Arrow 30", Arrow<30>, kPaper, 1},
    {7, "Filled Arrow 45", Arrow<45>, kLine, 0.9},
    {8, "Empty Arrow 45", Arrow<45>, kPaper, 1},
    {9, "Filled Fork 30", Fork, kLine, 0.6},
    {10, "Empty Fork 30", Fork, kPaper, kNotch},
    {11, "Filled Closed Fork 30", ClosedFork, kLine, 0.98},
    {12, "Empty Closed Fork 30", ClosedFork, kPaper, 1},
    {13, "Filled Losange 45", Losange<45>, kLine, 0.9},
    {14, "Empty Losange 45", Losange<45>, kPaper, 1},
    {15, "Many 45", Many, kNone, 1},
    {16, "Many Optional 45", ManyOptional, kPaper, 1 + 2 * kCircle},
    {17, "One 30", One, kNone, 1},
    {18, "One Optional 30", OneOptional, kPaper, 0.8 + 2 * kCircle},
    {19, "One Or Many 45", OneOrMany, kNone, 1},
    {20, "Opened Arrow 15", OpenArrow<15>, kNone, 0.05},
    {21, "Opened Arrow 30", OpenArrow<30>, kNone, 0.05},
    {22, "Opened Arrow 45", OpenArrow<45>, kNone, 0.05},
    {23, "Filled Losange 15", Losange<15>, kLine, 0.9},
    {24, "Filled Losange 30", Losange<30>, kLine, 0.9},
    {25, "Empty Losange 15", Losange<15>, kPaper, 1},
    {26, "Empty Losange 30", Losange<30>, kPaper, 1},
    {27, "Filled Half Arrow 15", HalfArrow<15>, kLine, 0.05},
    {28, "Filled Half Arrow 30", HalfArrow<30>, kLine, 0.05},
    {29, "Filled Half Arrow 45", HalfArrow<45>, kLine, 0.05},
    {30, "Empty Half Arrow 15", HalfArrow<15>, kPaper, 0.05},
    {31, "Empty Half Arrow 30", HalfArrow<30>, kPaper, 0.05},
    {32, "Empty Half Arrow 45", HalfArrow<45>, kPaper, 0.05},
};

constexpr bool IsWhole() {
    for (std::size_t i = 0; i < std::size(kArrows); ++i) {
        const ArrowRow &row = kArrows[i];
        if (row.value != int(i) || !row.name || !*row.name) return false;
        if ((i > 0) != (row.path != nullptr)) return false;
        if ((i > 0) != (row.eats > 0)) return false;
        for (std::size_t k = 0; k < i; ++k)
            if (std::string_view(row.name) == kArrows[k].name) return false;
    }
    return true;
}
#ifndef __SANITIZE_ADDRESS__ // with it GCC can't compare addresses of functions in constants
static_assert(IsWhole());
#endif

} // namespace

std::span<const ArrowRow> ArrowTable() { return kArrows; }
int LastArrow() { return int(std::size(kArrows)) - 1; }

const ArrowRow *FindArrow(int value) {
    return value >= 0 && value <= LastArrow() ? &kArrows[std::size_t(value)] : nullptr;
}

double ArrowScale(int size, double drawWidth) {
    constexpr double kPixels[] = {10, 14, 20};
    constexpr double kForWidth = 3.5; // pixels more for each pixel of width beyond the first
    const double beyond = std::max(drawWidth, 1.0) - 1;
    return kTwipsPerPixel * (kPixels[std::clamp(size, 0, 2)] + kForWidth * beyond);
}

double HeadLength(int arrow, int size, double drawWidth) {
    const ArrowRow *row = FindArrow(arrow);
    return row && row->path ? ArrowScale(size, drawWidth) * std::max(1.0, row->eats) : 0;
}

} // namespace diagram
