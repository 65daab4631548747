#include "diagram/model/ScreenValues.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>
#include <QGuiApplication>
#include <QPalette>

namespace diagram {

TEST(Overlays, Handles_StandAtTheEightPlaces) {
    Painting painting;
    Node &node = painting.Add(40, 40, 100, 60);
    node.SetSelected(true);
    painting.options.selection = true;
    const QImage image = painting.Paint();
    const QRgb line = painting.options.handleLine.rgb();
    for (const QPoint &at : {QPoint(40, 40), QPoint(90, 40), QPoint(140, 40), QPoint(140, 70),
                             QPoint(140, 100), QPoint(90, 100), QPoint(40, 100), QPoint(40, 70)})
        EXPECT_GE(CountOf(image, QRect(at - QPoint(3, 3), QSize(7, 7)), line), 24) << at.x() << " " << at.y();
    painting.options.selection = false;
    EXPECT_EQ(CountOf(painting.Paint(), line), 0);
}

TEST(Overlays, Marks_AreSeenOnlyWhenAskedFor) {
    Painting painting;
    painting.Add(40, 40, 100, 60).SetMarked(true);
    const QImage without = painting.Paint();
    painting.options.marks = true;
    EXPECT_NE(painting.Paint(), without);
}

TEST(Overlays, Marks_OnWhatCantBeSelectedAreNotShown) {
    Painting painting;
    Node &month = painting.Add(40, 40, 100, 60), &node = painting.Add(40, 110, 30, 20);
    Link &link = node.Links().Add(month);
    const QImage without = painting.Paint();
    month.SetSelectable(false);
    month.SetMarked(true);
    link.SetSelectable(false);
    link.SetMarked(true);
    painting.options.marks = true;
    EXPECT_EQ(painting.Paint(), without);
    link.SetSelectable(true);
    EXPECT_NE(painting.Paint(), without);
}

TEST(Backdrop, Grid_FollowsTheSurface) {
    Painting painting;
    painting.surface.Screen().SetGridSize(300);
    painting.surface.Screen().SetGridColor(support::Rgb(0, 0, 255));
    painting.options.grid = true;
    EXPECT_EQ(CountOf(painting.Paint(), 0xFF0000FF), 0);
    painting.surface.SetGridLines(true);
    // Dots; crosses with half of them cut off above and as many on the left as come in on the right; lines.
    const int kExpected[] = {10 * 8, 10 * 8 * 9 - 10 * 2, 10 * 150 + 8 * 200 - 10 * 8};
    for (int style = 0; style < 3; ++style) {
        painting.surface.Screen().SetGridStyle(style);
        EXPECT_EQ(CountOf(painting.Paint(), 0xFF0000FF), kExpected[style]) << style;
    }
}

TEST(Backdrop, FineGrid_IsMadeWider) {
    Painting painting;
    painting.surface.Screen().SetGridSize(15);
    painting.surface.SetGridLines(true);
    painting.surface.Screen().SetGridColor(support::Rgb(0, 0, 255));
    painting.options.grid = true;
    EXPECT_LT(CountOf(painting.Paint(), 0xFF0000FF), 200 * 150 / 2);
}

TEST(Backdrop, Picture_StandsAtTheOriginAndTheColourFillsTheRest) {
    QImage green(20, 10, QImage::Format_RGB32);
    green.fill(QColor(0, 255, 0));
    Painting painting;
    painting.surface.SetBackColor(support::Rgb(10, 20, 30));
    painting.surface.SetPicture(Picture::FromImage(green));
    const QImage image = painting.Paint();
    EXPECT_EQ(CountOf(image, 0xFF00FF00), 200);
    EXPECT_EQ(CountOf(image, qRgb(10, 20, 30)), 200 * 150 - 200);
}

TEST(Backdrop, Palette_MakesNoDifference) {
    Painting painting;
    painting.Add(40, 40, 100, 60).SetText(QStringLiteral("text"));
    const QImage before = painting.Paint();
    const QPalette palette = QGuiApplication::palette();
    QGuiApplication::setPalette(QPalette(Qt::black));
    EXPECT_EQ(painting.Paint(), before);
    QGuiApplication::setPalette(palette);
}

} // namespace diagram
