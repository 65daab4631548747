#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

constexpr QRgb kRed = 0xFFFF0000;

// Two boxes side by side in one row; the route between them runs from 41 to 160 at 60 down.
Link &AddLink(Painting &painting) {
    Node &from = painting.Add(10, 40, 30, 40);
    Node &to = painting.Add(160, 40, 30, 40);
    Link &link = from.Links().Add(to);
    link.SetLineColor(support::Rgb(255, 0, 0));
    link.SetArrowDest(0);
    return link;
}

const QRect kBetween(42, 0, 117, 150);

} // namespace

TEST(Links, LevelLine_IsOnePixelOfItsColour) {
    Painting painting;
    AddLink(painting);
    const QImage image = painting.Paint();
    EXPECT_EQ(CountOf(image, kBetween, kRed), kBetween.width());
    EXPECT_EQ(CountOf(image, QRect(42, 60, 117, 1), kRed), kBetween.width());
}

TEST(Links, LevelCurve_IsAsCrispAsALine) {
    for (const int style : {0, 1, 14}) {
        SCOPED_TRACE(style);
        Painting painting;
        Link &link = AddLink(painting);
        link.SetStyle(style);
        link.SetDrawWidth(3);
        EXPECT_EQ(CountOf(painting.Paint(), QRect(50, 50, 1, 20), kRed), 3);
    }
}

TEST(Links, HiddenAndTransparentOnes_AreNotPainted) {
    Painting painting;
    Link &link = AddLink(painting);
    link.SetDrawStyle(5);
    EXPECT_EQ(CountOf(painting.Paint(), kRed), 0);
    link.SetDrawStyle(0);
    link.SetHidden(true);
    EXPECT_EQ(CountOf(painting.Paint(), kRed), 0);
}

TEST(Links, EachArrowHead_IsSeenAtItsPlace) {
    struct Place {
        void (Link::*set)(int);
        QRect area;
    };
    const Place kPlaces[] = {{&Link::SetArrowSource, QRect(42, 45, 12, 30)},
                             {&Link::SetArrowMiddle, QRect(88, 45, 24, 30)},
                             {&Link::SetArrowDest, QRect(146, 45, 12, 30)}};
    Painting bare;
    AddLink(bare);
    const QImage without = bare.Paint();
    for (const ArrowRow &row : ArrowTable().subspan(1))
        for (const Place &place : kPlaces) {
            SCOPED_TRACE(row.name);
            Painting painting;
            Link &link = AddLink(painting);
            (link.*place.set)(row.value);
            const QImage with = painting.Paint();
            EXPECT_NE(with.copy(place.area), without.copy(place.area));
            for (const Place &other : kPlaces) {
                if (other.set != place.set) {
                    EXPECT_EQ(with.copy(other.area), without.copy(other.area));
                }
            }
        }
}

TEST(Links, ArrowHeads_EndAtTheOutlineHoweverThickTheLine) {
    for (const ArrowRow &row : ArrowTable().subspan(1)) {
        SCOPED_TRACE(row.name);
        Painting painting;
        Link &link = AddLink(painting);
        link.SetDrawWidth(4);
        link.SetArrowSizeDest(2);
        link.SetArrowDest(row.value);
        link.Destination().SetDrawStyle(5);
        EXPECT_EQ(CountOf(painting.Paint(), QRect(161, 0, 39, 150), 0xFFFFFFFF), 39 * 150);
    }
}

TEST(Links, ArrowSizes_Grow) {
    int before = 0;
    for (int size = 0; size < 3; ++size) {
        Painting painting;
        Link &link = AddLink(painting);
        link.SetArrowDest(7);
        link.SetArrowSizeDest(size);
        const int red = CountOf(painting.Paint(), kBetween, kRed);
        EXPECT_GT(red, before);
        before = red;
    }
}

TEST(Links, EachStyle_LeadsFromNodeToNode) {
    for (const LinkStyleRow &style : LinkStyleTable()) {
        SCOPED_TRACE(style.name);
        Painting painting;
        Node &from = painting.Add(10, 10, 30, 30);
        Node &to = painting.Add(150, 100, 30, 30);
        Link &link = from.Links().Add(to);
        link.SetLineColor(support::Rgb(255, 0, 0));
        link.SetStyle(style.value);
        link.SetDrawWidth(3);
        EXPECT_GT(CountOf(painting.Paint(), kRed), 150);
    }
}

// Long segments and what lies around bends are drawn apart.
TEST(Links, WideSlantedWays_LookLikeOneRun) {
    const QPolygonF route{{10, 75}, {60, 20}, {70, 24}, {150, 140}, {190, 60}};
    for (const int width : {2, 5, 9}) {
        SCOPED_TRACE(width);
        Painting painting;
        Link &link = painting.Add(0, 70, 10, 10).Links().Add(painting.Add(185, 50, 10, 10));
        std::vector<Point> points;
        for (const QPointF &at : route) points.push_back({float(at.x()) * 15, float(at.y()) * 15});
        link.Points().Assign(points);
        link.SetLineColor(support::Rgb(255, 0, 0));
        link.SetArrowDest(0);
        link.SetDrawWidth(float(width));
        for (Node &node : painting.surface.Nodes()) node.SetHidden(true);
        const QImage image = painting.Paint();

        QPolygonF run;
        for (const Point &point : link.Route()) {
            const QPointF at = ToQPointF(point) / 15;
            const double half = width % 2 ? 0.5 : 0;
            run << QPointF(std::floor(at.x() + 0.5 - half) + half, std::floor(at.y() + 0.5 - half) + half);
        }
        QImage expected = image;
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::red, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawPolyline(run);
        painter.end();
        int far = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                far += std::abs(qGreen(image.pixel(x, y)) - qGreen(expected.pixel(x, y))) > 60;
        EXPECT_EQ(far, 0);
    }
}

TEST(Links, Label_StandsOnPaperInTheMiddle) {
    Painting painting;
    Link &link = AddLink(painting);
    painting.surface.SetMeasure(&painting.renderer.Measure());
    link.SetText(QStringLiteral("ll"));
    const QImage image = painting.Paint();
    EXPECT_LT(CountOf(image, QRect(42, 60, 117, 1), kRed), 115);
    EXPECT_EQ(CountOf(image, QRect(42, 60, 30, 1), kRed), 30);
}

TEST(Links, Jumps_LeaveTheLineOfTheCrossing) {
    const auto row = [](int jump) {
        Painting painting;
        Node &top = painting.Add(90, 5, 20, 20), &bottom = painting.Add(90, 120, 20, 20);
        top.Links().Add(bottom).SetArrowDest(0);
        AddLink(painting).SetJumpStyle(jump);
        const QImage image = painting.Paint();
        return std::pair(CountOf(image, QRect(42, 60, 117, 1), kRed),
                         CountOf(image, QRect(95, 54, 11, 4), 0xFFFFFFFF));
    };
    EXPECT_EQ(row(0).first, 117);
    EXPECT_LT(row(1).first, 110); // an arch above the line
    EXPECT_LT(row(1).second, row(0).second);
    EXPECT_LT(row(2).first, 110); // a gap
    EXPECT_EQ(row(2).second, row(0).second);
}

TEST(Links, Jumps_LeaveTheLineOfACurve) {
    for (const int style : {1, 14})
        for (const double zoom : {1.0, 0.2}) {
            SCOPED_TRACE(testing::Message() << style << " at " << zoom);
            const auto seen = [&](int jump) {
                Painting painting;
                const auto at = [&](double x, double y) {
                    return Point{float(x * 15 / zoom), float(y * 15 / zoom)};
                };
                const auto add = [&](double x, double y) {
                    return &painting.Add(float(x / zoom), float(y / zoom), 0, 0);
                };
                add(100, 5)->Links().Add(*add(100, 120)).SetLineColor(support::Rgb(0, 0, 255));
                Link &curve = add(20, 60)->Links().Add(*add(180, 60));
                curve.SetArrowDest(0);
                curve.SetStyle(style);
                curve.SetAddPointsMode(true);
                curve.Points().Assign({at(20, 60), at(60, 100), at(140, 20), at(180, 60)});
                curve.SetLineColor(support::Rgb(255, 0, 0));
                curve.SetDrawWidth(zoom < 1 ? 5 : 1);
                curve.SetJumpStyle(jump);
                return painting.Paint(zoom);
            };
            const QImage none = seen(0), arch = seen(1), gap = seen(2);
            const auto reds = [](const QImage &image, const QRect &area) {
                int count = 0;
                for (int x = area.left(); x <= area.right(); ++x)
                    for (int y = area.top(); y <= area.bottom(); ++y) {
                        const QColor colour(image.pixel(x, y));
                        count += colour.red() > colour.blue() + 60;
                    }
                return count;
            };
            const QRect heart(99, 59, 3, 3), above(94, 53, 6, 7), beside(30, 20, 50, 80);
            EXPECT_LE(reds(gap, heart), reds(none, heart) - 2);
            EXPECT_EQ(reds(gap, above), 0);
            EXPECT_GE(reds(arch, above), 2);
            EXPECT_NEAR(reds(none, beside), reds(gap, beside), 2);
        }
}

TEST(Links, Jumps_AreSeenFromAfar) {
    for (const double zoom : {0.1, 0.15, 0.2, 0.29}) {
        SCOPED_TRACE(zoom);
        const auto paint = [zoom](int jump) {
            Painting painting;
            const auto add = [&](double x, double y) {
                return &painting.Add(float((x + 0.5) / zoom), float((y + 0.5) / zoom), 0, 0);
            };
            add(100, 5)->Links().Add(*add(100, 120)).SetLineColor(support::Rgb(0, 0, 255));
            Link &link = add(20, 60)->Links().Add(*add(180, 60));
            link.SetArrowDest(0);
            link.SetLineColor(support::Rgb(255, 0, 0));
            link.SetJumpStyle(jump);
            return painting.Paint(zoom);
        };
        const QImage none = paint(0), arch = paint(1), gap = paint(2);
        const QRgb line = none.pixel(40, 60), white = qRgb(255, 255, 255);
        ASSERT_NE(line, white);
        const QRect row(80, 60, 41, 1), above(80, 55, 41, 5);
        EXPECT_GE(CountOf(none, row, line), 40);
        EXPECT_LE(CountOf(gap, row, line), 38); // one pixel on either side at least
        EXPECT_GT(CountOf(gap, row, line), 33);
        EXPECT_EQ(CountOf(gap, above, line), 0);
        EXPECT_LT(CountOf(arch, row, line), CountOf(none, row, line));
        EXPECT_GT(CountOf(arch, above, line), 0);
        EXPECT_EQ(gap.pixel(40, 60), line);
        EXPECT_EQ(gap.pixel(160, 60), line);
    }
}

TEST(Links, Jumps_AreAsWideAsTheZoomMakesThem) {
    for (const double zoom : {0.35, 0.5, 1.0, 2.0, 4.0, 8.0}) {
        Painting painting;
        const auto add = [&](double x, double y) {
            return &painting.Add(float(x / zoom), float(y / zoom), 0, 0);
        };
        add(100, 5)->Links().Add(*add(100, 120)).SetArrowDest(0);
        Link &link = add(20, 60)->Links().Add(*add(180, 60));
        link.SetArrowDest(0);
        link.SetLineColor(support::Rgb(255, 0, 0));
        link.SetJumpStyle(2);
        const QImage image = painting.Paint(zoom);
        const QColor line(image.pixel(45, 60)); // thinner than a pixel, and so paler, when it is small
        int first = 200, last = 0;              // that look otherwise
        for (int x = 40; x < 160; ++x) {
            const QColor colour(image.pixel(x, 60));
            const bool same =
                std::abs(colour.green() - line.green()) + std::abs(colour.red() - line.red()) < 20;
            if (!same) first = std::min(first, x), last = std::max(last, x);
        }
        EXPECT_NEAR(last - first + 1, 10 * zoom, 2) << zoom;
        EXPECT_NEAR((first + last) / 2.0, 100, 1.5) << zoom;
    }
}

TEST(Links, NodesThatTouch_GiveNoEndlessHead) {
    Painting painting;
    Node &from = painting.Add(20, 20, 60, 60), &to = painting.Add(30, 30, 60, 60);
    for (int style = 0; style < 15; ++style) {
        Link &link = from.Links().Add(to);
        link.SetStyle(style);
        link.SetArrowMiddle(15);
    }
    EXPECT_FALSE(painting.Paint().isNull());
}

} // namespace diagram
