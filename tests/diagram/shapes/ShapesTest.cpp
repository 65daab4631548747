#include "diagram/shapes/Shapes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <QPainterPathStroker>
#include <set>

namespace diagram {

namespace {

const QRectF kWide(120, -80, 1500, 600);
const QRectF kTall(-3000, 40, 450, 1350);

struct Named {
    int value;
    const char *name;
};

const Named kNames[] = {{0, "Ellipse"},
                        {1, "Rectangle"},
                        {2, "Round Rectangle"},
                        {3, "Losange"},
                        {4, "North Triangle"},
                        {5, "South Triangle"},
                        {6, "East Triangle"},
                        {7, "West Triangle"},
                        {8, "Hexagon"},
                        {9, "Rectangle Edge Bump"},
                        {10, "Rectangle Edge Etched"},
                        {11, "Rectangle Edge Raised"},
                        {12, "Rectangle Edge Sunken"},
                        {13, "Triangle"},
                        {14, "Pentagon"},
                        {15, "Octogon"},
                        {50, "Process"},
                        {51, "Alternate Process"},
                        {52, "Decision"},
                        {53, "Data"},
                        {54, "Predefined Process"},
                        {55, "Internal Storage"},
                        {56, "Document"},
                        {57, "Multi Document"},
                        {58, "Termination"},
                        {59, "Preperation"},
                        {60, "Manual Input"},
                        {61, "Manual Operation"},
                        {62, "Connector"},
                        {63, "Off Page Connection"},
                        {64, "Card"},
                        {65, "PunchedTape"},
                        {66, "Summing Junction"},
                        {67, "Or"},
                        {68, "Collate"},
                        {69, "Sort"},
                        {70, "Extract"},
                        {71, "Merge"},
                        {72, "Stored Data"},
                        {73, "Delay"},
                        {74, "Sequential Access"},
                        {75, "Magnetic Disk"},
                        {76, "Direct Access Storage"},
                        {77, "Display"}};

constexpr int kCollate = 68;

template <typename Check>
void ForAllShapes(Check check) {
    for (const ShapeRow &row : ShapeTable())
        for (int orientation = 0; orientation < 4; ++orientation)
            for (const QRectF &box : {kWide, kTall}) {
                SCOPED_TRACE(std::string(row.name) + " turned " + std::to_string(orientation));
                check(row, orientation, box);
            }
}

// Rectangles without an area are held too.
bool Holds(const QRectF &outer, const QRectF &inner) {
    return inner.left() >= outer.left() - 1 && inner.right() <= outer.right() + 1 &&
           inner.top() >= outer.top() - 1 && inner.bottom() <= outer.bottom() + 1;
}

void ExpectSameRect(const QRectF &a, const QRectF &b, double tolerance) {
    EXPECT_NEAR(a.left(), b.left(), tolerance);
    EXPECT_NEAR(a.top(), b.top(), tolerance);
    EXPECT_NEAR(a.right(), b.right(), tolerance);
    EXPECT_NEAR(a.bottom(), b.bottom(), tolerance);
}

double DistanceToPath(const QPainterPath &path, const QPointF &point) {
    double nearest = 1e9;
    for (const QPolygonF &polygon : path.toSubpathPolygons())
        for (int i = 0; i + 1 < polygon.size(); ++i) {
            const QPointF a = polygon[i], route = polygon[i + 1] - a;
            const double length = QPointF::dotProduct(route, route);
            const double t =
                length > 0 ? std::clamp(QPointF::dotProduct(point - a, route) / length, 0.0, 1.0) : 0;
            const QPointF off = point - (a + t * route);
            nearest = std::min(nearest, std::hypot(off.x(), off.y()));
        }
    return nearest;
}

bool IsFinite(const QPainterPath &path) {
    for (int i = 0; i < path.elementCount(); ++i)
        if (!std::isfinite(path.elementAt(i).x) || !std::isfinite(path.elementAt(i).y)) return false;
    return true;
}

} // namespace

TEST(Shapes, Table_HasTheNamesInPickerOrder) {
    ASSERT_EQ(ShapeTable().size(), std::size(kNames));
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
        EXPECT_EQ(ShapeTable()[i].value, kNames[i].value);
        EXPECT_STREQ(ShapeTable()[i].name, kNames[i].name);
    }
}

TEST(Shapes, FindShape_FindsEachRowAndNothingElse) {
    std::set<int> values;
    for (const ShapeRow &row : ShapeTable()) {
        EXPECT_EQ(FindShape(row.value), &row);
        values.insert(row.value);
    }
    EXPECT_EQ(values.size(), 44u);
    for (int value : {-1, 16, 49, 78, 1000, -2147483647}) EXPECT_EQ(FindShape(value), nullptr) << value;
}

TEST(Shapes, Outline_FillsTheBoxInEachOrientation) {
    ForAllShapes([](const ShapeRow &row, int orientation, const QRectF &box) {
        ExpectSameRect(Outline(row.value, orientation, box).boundingRect(), box, 1.0);
    });
}

TEST(Shapes, Outline_IsOneClosedLine) {
    ForAllShapes([](const ShapeRow &row, int orientation, const QRectF &box) {
        const QList<QPolygonF> parts = Outline(row.value, orientation, box).toSubpathPolygons();
        ASSERT_EQ(parts.size(), 1);
        EXPECT_TRUE(parts[0].isClosed());
    });
}

// The two halves of Collate touch in the middle.
TEST(Shapes, Outline_HoldsTheMiddle) {
    ForAllShapes([](const ShapeRow &row, int orientation, const QRectF &box) {
        if (row.value == kCollate) {
            EXPECT_NEAR(DistanceToPath(Outline(row.value, orientation, box), box.center()), 0, 1e-6);
            return;
        }
        EXPECT_TRUE(Outline(row.value, orientation, box).contains(box.center()));
    });
}

TEST(Shapes, Outline_TurnsTheFormClockwise) {
    const QRectF box(0, 0, 100, 100);
    constexpr int kManualInput = 60; // low at the left top corner
    const QPointF corners[] = {{3, 3}, {97, 3}, {97, 97}, {3, 97}};
    for (int orientation = 0; orientation < 4; ++orientation)
        for (int corner = 0; corner < 4; ++corner)
            EXPECT_EQ(Outline(kManualInput, orientation, box).contains(corners[corner]),
                      corner != orientation)
                << corner << orientation;
}

TEST(Shapes, Corners_AreThoseOfTheOutline) {
    ForAllShapes([](const ShapeRow &row, int orientation, const QRectF &box) {
        QPointF corners[kMostCorners];
        const int count = TurnedCorners(row, orientation, box, corners);
        ASSERT_EQ(count > 0, row.form == ShapeForm::Polygon);
        const QPainterPath outline = Outline(row.value, orientation, box);
        for (int i = 0; i < count; ++i) {
            EXPECT_NEAR(outline.elementAt(i).x, corners[i].x(), 1e-9);
            EXPECT_NEAR(outline.elementAt(i).y, corners[i].y(), 1e-9);
        }
    });
}

TEST(Shapes, Detail_StaysInTheBox) {
    int withDetail = 0;
    ForAllShapes([&](const ShapeRow &row, int orientation, const QRectF &box) {
        const QPainterPath detail = Detail(row.value, orientation, box);
        EXPECT_EQ(detail.isEmpty(), row.detail == nullptr);
        if (detail.isEmpty()) return;
        ++withDetail;
        EXPECT_TRUE(Holds(box, detail.boundingRect()));
    });
    EXPECT_EQ(withDetail, 8 * 8);
}

TEST(Shapes, TextArea_LiesInTheBoxAndMostlyInTheOutline) {
    ForAllShapes([](const ShapeRow &row, int orientation, const QRectF &box) {
        const QRectF area = TextArea(row.value, orientation, box);
        EXPECT_TRUE(Holds(box, area));
        EXPECT_GT(area.width() * area.height(), box.width() * box.height() * 0.15);
        EXPECT_TRUE(Outline(row.value, orientation, box).contains(area.center()));
    });
}

TEST(Shapes, OutlineCrossing_LiesOnTheOutline) {
    ForAllShapes([](const ShapeRow &row, int orientation, const QRectF &box) {
        const QPainterPath outline = Outline(row.value, orientation, box);
        for (int degrees = 0; degrees < 360; degrees += 7) {
            const double angle = degrees * M_PI / 180;
            const QPointF from = box.center() + QPointF(std::cos(angle), std::sin(angle)) * 4000;
            const QPointF crossing = OutlineCrossing(row.value, orientation, box, from);
            EXPECT_LT(DistanceToPath(outline, crossing), 2.0) << degrees;
        }
    });
}

TEST(Shapes, OutlineCrossing_IsTheOneNearestToTheStart) {
    // From the left a stored data is met on its bulging side.
    const QRectF box(0, 0, 1000, 400);
    EXPECT_NEAR(OutlineCrossing(72, 0, box, {-500, 200}).x(), 0, 1);
    EXPECT_NEAR(OutlineCrossing(1, 0, box, {2000, 200}).x(), 1000, 1e-9);
}

TEST(Shapes, OutlineCrossing_FromInsideIsTheMiddle) {
    const QRectF box(0, 0, 1000, 400);
    for (int shape : {0, 1, 3, 2})
        EXPECT_EQ(OutlineCrossing(shape, 0, box, {480, 190}), box.center()) << shape;
}

TEST(Shapes, BoxesWithoutSize_GiveFiniteForms) {
    for (const QRectF &box :
         {QRectF(5, 6, 0, 0), QRectF(5, 6, 100, 0), QRectF(5, 6, 0, 100), QRectF(1e9, -1e9, 1e-3, 1)})
        for (const ShapeRow &row : ShapeTable())
            for (int orientation = 0; orientation < 4; ++orientation) {
                SCOPED_TRACE(row.name);
                const QPainterPath outline = Outline(row.value, orientation, box);
                EXPECT_TRUE(IsFinite(outline));
                EXPECT_FALSE(outline.elementCount() == 0);
                EXPECT_TRUE(IsFinite(Detail(row.value, orientation, box)));
                const QPointF crossing = OutlineCrossing(row.value, orientation, box, {-900, 700});
                EXPECT_TRUE(std::isfinite(crossing.x()) && std::isfinite(crossing.y()));
                EXPECT_TRUE(Holds(box, QRectF(crossing, crossing)));
            }
}

TEST(Shapes, Triangle_IsNotTheNorthTriangle) { EXPECT_NE(Outline(13, 0, kWide), Outline(4, 0, kWide)); }

TEST(Shapes, Edges_AreThoseOfTheFourRectangles) {
    for (const ShapeRow &row : ShapeTable())
        EXPECT_EQ(row.edge != ShapeEdge::None, row.value >= 9 && row.value <= 12) << row.name;
}

} // namespace diagram
