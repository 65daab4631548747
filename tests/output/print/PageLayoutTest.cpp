#include "output/print/PageLayout.h"

#include <gtest/gtest.h>

namespace print {

namespace {

constexpr double kTiny = 1e-6;
constexpr double kTwipsOfMillimetre = 1440 / 25.4;

QRectF Twips(double x, double y, double width, double height) {
    return {x * kTwipsOfMillimetre, y * kTwipsOfMillimetre, width * kTwipsOfMillimetre,
            height * kTwipsOfMillimetre};
}

PageRules Plain() {
    PageRules rules;
    rules.margins = {15, 15, 15, 15};
    return rules;
}

TEST(PageLayout, AnEmptySurfaceIsOneEmptyPage) {
    for (const bool fit : {false, true}) {
        PageRules rules = Plain();
        rules.fit = fit;
        const PageLayout layout = LayOutPages(rules, QRectF());
        EXPECT_EQ(layout.Pages(), 1);
        EXPECT_EQ(layout.HorizontalPages(), 1);
        EXPECT_EQ(layout.VerticalPages(), 1);
        EXPECT_EQ(layout.body, QRectF(15, 15, 180, 267));
    }
}

TEST(PageLayout, WhatFitsTakesOnePageAtItsOwnSize) {
    const PageLayout layout = LayOutPages(Plain(), Twips(-50, 20, 180, 267));
    EXPECT_EQ(layout.Pages(), 1);
    EXPECT_NEAR(layout.xScale * kTwipsOfMillimetre, 1, kTiny);
    EXPECT_NEAR(layout.Place(0).width(), 180, kTiny);
    EXPECT_EQ(layout.Place(0).topLeft(), QPointF(15, 15));
}

TEST(PageLayout, SpreadsALargeSurfaceAcrossFirstAndThenDown) {
    const PageLayout layout = LayOutPages(Plain(), Twips(10, 20, 3 * 180, 2 * 267));
    EXPECT_EQ(layout.HorizontalPages(), 3);
    EXPECT_EQ(layout.VerticalPages(), 2);
    EXPECT_EQ(layout.Pages(), 6);
    const QRectF fifth = layout.Tile(4);
    EXPECT_NEAR(fifth.left(), Twips(190, 0, 0, 0).left(), 1e-3);
    EXPECT_NEAR(fifth.top(), Twips(0, 287, 0, 0).top(), 1e-3);
    EXPECT_NEAR(fifth.width(), Twips(0, 0, 180, 0).width(), 1e-3);
    EXPECT_NEAR(fifth.height(), Twips(0, 0, 0, 267).height(), 1e-3);
}

TEST(PageLayout, HasALineBetweenAnyTwoPages) {
    const PageLayout layout = LayOutPages(Plain(), Twips(10, 20, 3 * 180, 2 * 267));
    const std::vector<QLineF> lines = layout.Lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], QLineF(layout.columns[1], layout.rows[0], layout.columns[1], layout.rows[2]));
    EXPECT_EQ(lines[2], QLineF(layout.columns[0], layout.rows[1], layout.columns[3], layout.rows[1]));
    EXPECT_TRUE(LayOutPages(Plain(), QRectF()).Lines().empty());
}

TEST(PageLayout, OneMillimetreMoreIsAnotherPage) {
    EXPECT_EQ(LayOutPages(Plain(), Twips(0, 0, 181, 268)).Pages(), 4);
    EXPECT_EQ(LayOutPages(Plain(), Twips(0, 0, 180.0000001, 267)).Pages(), 1);
}

TEST(PageLayout, LandscapeTurnsTheSheetAndKeepsTheMarginsWhereTheyAre) {
    PageRules rules = Plain();
    rules.orientation = kLandscape;
    rules.margins = {10, 20, 30, 40};
    const PageLayout layout = LayOutPages(rules, Twips(0, 0, 300, 200));
    EXPECT_EQ(layout.paper, QSizeF(297, 210));
    EXPECT_EQ(layout.body, QRectF(10, 20, 257, 150));
    EXPECT_EQ(layout.HorizontalPages(), 2);
    EXPECT_EQ(layout.VerticalPages(), 2);
}

TEST(PageLayout, FitScalesToOnePageInItsMiddle) {
    PageRules rules = Plain();
    rules.fit = true;
    const PageLayout layout = LayOutPages(rules, Twips(100, 100, 540, 267));
    EXPECT_EQ(layout.Pages(), 1);
    EXPECT_NEAR(layout.xScale * kTwipsOfMillimetre, 1.0 / 3, kTiny);
    EXPECT_EQ(layout.xScale, layout.yScale);
    const QRectF place = layout.Place(0);
    EXPECT_NEAR(place.left(), 15, kTiny);
    EXPECT_NEAR(place.center().y(), layout.body.center().y(), kTiny);
    EXPECT_NEAR(place.height(), 89, kTiny);
}

TEST(PageLayout, FitEnlargesLittleContentNoMoreThanTwice) {
    PageRules rules = Plain();
    rules.fit = true;
    EXPECT_NEAR(LayOutPages(rules, Twips(0, 0, 20, 10)).xScale * kTwipsOfMillimetre, kLargestFit, kTiny);
    EXPECT_NEAR(LayOutPages(rules, Twips(0, 0, 120, 10)).xScale * kTwipsOfMillimetre, 1.5, kTiny);
}

TEST(PageLayout, ZoomScalesBothDirectionsOnTheirOwn) {
    PageRules rules = Plain();
    rules.xZoom = 50, rules.yZoom = 200;
    const PageLayout layout = LayOutPages(rules, Twips(0, 0, 360, 267));
    EXPECT_EQ(layout.HorizontalPages(), 1);
    EXPECT_EQ(layout.VerticalPages(), 2);
    EXPECT_NEAR(layout.Place(0).width(), 180, kTiny);
}

TEST(PageLayout, AZoomOfNothingFits) {
    PageRules rules = Plain();
    rules.xZoom = rules.yZoom = 0;
    EXPECT_EQ(LayOutPages(rules, Twips(0, 0, 5000, 5000)).Pages(), 1);
}

TEST(PageLayout, HeaderAndFooterTakeTheirLines) {
    PageRules rules = Plain();
    rules.header = true;
    EXPECT_EQ(LayOutPages(rules, {}).body, QRectF(15, 15 + kLineOfText, 180, 267 - kLineOfText));
    rules.header = false, rules.footer = true;
    EXPECT_EQ(LayOutPages(rules, {}).body, QRectF(15, 15, 180, 267 - kLineOfText));
}

TEST(PageLayout, MarginsWiderThanTheSheetLeaveSomeOfIt) {
    PageRules rules = Plain();
    rules.margins = {200, 400, 200, 400};
    const PageLayout layout = LayOutPages(rules, Twips(0, 0, 30, 20));
    EXPECT_NEAR(layout.body.width(), 10, kTiny);
    EXPECT_NEAR(layout.body.height(), 10, kTiny);
    EXPECT_EQ(layout.HorizontalPages(), 3);
}

TEST(PageLayout, MarksMakePagesOverlap) {
    PageRules rules = Plain();
    rules.marks = true;
    const PageLayout layout = LayOutPages(rules, Twips(0, 0, 2 * 172, 200));
    EXPECT_TRUE(layout.overlaps);
    ASSERT_EQ(layout.HorizontalPages(), 2);
    EXPECT_NEAR(layout.Place(0).width(), 180 - kOverlap, kTiny);
    EXPECT_NEAR(layout.Shown(0).right() - layout.Tile(1).left(), Twips(0, 0, kOverlap, 0).width(), 1e-3);
    EXPECT_EQ(layout.Shown(1).left(), layout.Tile(1).left());
}

TEST(PageLayout, OnePageHasNothingToGlue) {
    PageRules rules = Plain();
    rules.marks = true;
    EXPECT_FALSE(LayOutPages(rules, Twips(0, 0, 180, 267)).overlaps);
    rules.fit = true;
    EXPECT_FALSE(LayOutPages(rules, Twips(0, 0, 1800, 2670)).overlaps);
}

TEST(PageLayout, WithoutMarksAPageShowsNothingOfTheNext) {
    const PageLayout layout = LayOutPages(Plain(), Twips(0, 0, 360, 534));
    for (int page = 0; page < 4; ++page) {
        EXPECT_EQ(layout.Shown(page).topLeft(), layout.Tile(page).topLeft());
        EXPECT_NEAR(layout.Shown(page).right(), layout.Tile(page).right(), 1e-3);
    }
}

TEST(PageLayout, ABreakStandsBeforeANodeThatItWouldCut) {
    PageRules rules = Plain();
    const std::vector<QRectF> boxes{Twips(170, 10, 40, 20)};
    EXPECT_NEAR(LayOutPages(rules, Twips(0, 0, 300, 100), boxes).columns[1], Twips(180, 0, 0, 0).left(),
                1e-3);
    rules.keepWhole = true;
    EXPECT_NEAR(LayOutPages(rules, Twips(0, 0, 300, 100), boxes).columns[1], Twips(170, 0, 0, 0).left(),
                1e-3);
}

TEST(PageLayout, AnEndlessSurfaceHasBoundedPages) {
    const PageLayout layout = LayOutPages(Plain(), QRectF(0, 0, 1e12, 1e9));
    EXPECT_LE(layout.HorizontalPages(), kMostPagesOfDirection + 1);
    EXPECT_LE(layout.VerticalPages(), kMostPagesOfDirection + 1);
    EXPECT_GE(layout.HorizontalPages(), kMostPagesOfDirection);
}

TEST(Breaks, GiveWayByATenthOfAStepAtMost) {
    EXPECT_EQ(Breaks(0, 150, 100, {{90, 120}}), (std::vector<double>{0, 90, 150}));
    EXPECT_EQ(Breaks(0, 150, 100, {{89, 120}}), (std::vector<double>{0, 100, 150}));
    EXPECT_EQ(Breaks(0, 150, 100, {}), (std::vector<double>{0, 100, 150}));
}

TEST(Breaks, MayStandWhereNodesOnlyTouch) {
    EXPECT_EQ(Breaks(0, 150, 100, {{60, 100}, {100, 140}}), (std::vector<double>{0, 100, 150}));
}

TEST(Breaks, GoBeforeAllNodesThatHangTogether) {
    EXPECT_EQ(Breaks(0, 180, 100, {{96, 120}, {92, 97}}), (std::vector<double>{0, 92, 180}));
}

TEST(Breaks, CutNodesLongerThanAPage) {
    EXPECT_EQ(Breaks(0, 220, 100, {{5, 215}, {95, 105}}), (std::vector<double>{0, 95, 195, 220}));
}

TEST(Breaks, CountFromTheOneBefore) {
    EXPECT_EQ(Breaks(0, 300, 100, {{95, 105}, {190, 200}}), (std::vector<double>{0, 95, 190, 290, 300}));
}

} // namespace

} // namespace print
