#include "diagram/shapes/Arrows.h"

#include <cmath>
#include <gtest/gtest.h>
#include <QString>
#include <set>

namespace diagram {

namespace {

const char *const kNames[] = {"No Arrow",
                              "Filled Circle",
                              "Empty Circle",
                              "Filled Arrow 15",
                              "Empty Arrow 15",
                              "Filled Arrow 30",
                              "Empty Arrow 30",
                              "Filled Arrow 45",
                              "Empty Arrow 45",
                              "Filled Fork 30",
                              "Empty Fork 30",
                              "Filled Closed Fork 30",
                              "Empty Closed Fork 30",
                              "Filled Losange 45",
                              "Empty Losange 45",
                              "Many 45",
                              "Many Optional 45",
                              "One 30",
                              "One Optional 30",
                              "One Or Many 45",
                              "Opened Arrow 15",
                              "Opened Arrow 30",
                              "Opened Arrow 45",
                              "Filled Losange 15",
                              "Filled Losange 30",
                              "Empty Losange 15",
                              "Empty Losange 30",
                              "Filled Half Arrow 15",
                              "Filled Half Arrow 30",
                              "Filled Half Arrow 45",
                              "Empty Half Arrow 15",
                              "Empty Half Arrow 30",
                              "Empty Half Arrow 45"};

// The angle under which the points of the path are seen from `eye`, in degrees; points at `eye` and circles
// don't count.
double Span(const QPainterPath &path, const QPointF &eye) {
    double least = 1e9, most = -1e9;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isCurveTo() || element.type == QPainterPath::CurveToDataElement) continue;
        const QPointF way = QPointF(element) - eye;
        if (std::hypot(way.x(), way.y()) < 1e-9) continue;
        const double toward = eye.x() < 0 ? std::atan2(way.y(), way.x()) : std::atan2(way.y(), -way.x());
        if (std::abs(toward) > M_PI / 2) continue; // behind the eye
        least = std::min(least, toward);
        most = std::max(most, toward);
    }
    return (most - least) * 180 / M_PI;
}

bool IsFoot(const QString &name) { return name.contains("Many"); }

} // namespace

TEST(Arrows, Table_HasTheNamesInOrder) {
    ASSERT_EQ(ArrowTable().size(), std::size(kNames));
    for (int i = 0; i <= LastArrow(); ++i) {
        EXPECT_EQ(ArrowTable()[std::size_t(i)].value, i);
        EXPECT_STREQ(ArrowTable()[std::size_t(i)].name, kNames[i]);
        EXPECT_EQ(FindArrow(i), &ArrowTable()[std::size_t(i)]);
    }
    EXPECT_EQ(FindArrow(-1), nullptr);
    EXPECT_EQ(FindArrow(33), nullptr);
}

TEST(Arrows, EachHeadTouchesTheTipAndLiesBehindIt) {
    for (const ArrowRow &row : ArrowTable().subspan(1)) {
        SCOPED_TRACE(row.name);
        const QRectF bounds = row.path().boundingRect();
        EXPECT_NEAR(bounds.right(), 0, 1e-3);
        EXPECT_LT(bounds.left(), -0.5);
        EXPECT_GE(bounds.left(), -2);
        EXPECT_LE(row.eats, -bounds.left() + 1e-9);
    }
}

TEST(Arrows, NumberInTheName_IsTheAngleOfTheHead) {
    int checked = 0;
    for (const ArrowRow &row : ArrowTable()) {
        const QString name = QString::fromLatin1(row.name);
        bool isNumber = false;
        const int degrees = name.section(' ', -1).toInt(&isNumber);
        if (!isNumber) continue;
        ++checked;
        EXPECT_NEAR(Span(row.path(), IsFoot(name) ? QPointF(-1, 0) : QPointF(0, 0)), degrees, 0.01)
            << row.name;
    }
    EXPECT_EQ(checked, 30);
}

TEST(Arrows, FilledAndEmptyNames_TellTheFill) {
    for (const ArrowRow &row : ArrowTable()) {
        const QString name = QString::fromLatin1(row.name);
        if (name.startsWith("Filled")) {
            EXPECT_EQ(row.fill, ArrowFill::Line) << row.name;
        }
        if (name.startsWith("Empty")) {
            EXPECT_EQ(row.fill, ArrowFill::Paper) << row.name;
        }
        if (name.startsWith("Opened")) {
            EXPECT_EQ(row.fill, ArrowFill::None) << row.name;
        }
    }
}

TEST(Arrows, HeadsDiffer) {
    for (const ArrowRow &a : ArrowTable().subspan(1))
        for (const ArrowRow &b : ArrowTable().subspan(1))
            if (a.value < b.value && a.fill == b.fill) {
                EXPECT_NE(a.path(), b.path()) << a.name << ", " << b.name;
            }
}

TEST(Arrows, ArrowScale_GrowsWithSizeAndWidth) {
    for (double width : {0.0, 1.0, 3.0, 8.0}) {
        EXPECT_LT(ArrowScale(0, width), ArrowScale(1, width));
        EXPECT_LT(ArrowScale(1, width), ArrowScale(2, width));
    }
    EXPECT_EQ(ArrowScale(0, 0), ArrowScale(0, 1));
    EXPECT_LT(ArrowScale(0, 1), ArrowScale(0, 2));
    EXPECT_EQ(ArrowScale(-5, 1), ArrowScale(0, 1));
    EXPECT_EQ(ArrowScale(9, 1), ArrowScale(2, 1));
}

} // namespace diagram
