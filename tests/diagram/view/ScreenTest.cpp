#include "diagram/view/Screen.h"

#include <gtest/gtest.h>
#include <QPainter>

namespace diagram::testing {

namespace {

constexpr int kWidth = 60, kHeight = 40;
const QColor kPaper(250, 240, 230);

BackingStore::PaintArea PaintAll(const QColor &colour, int *painted = nullptr) {
    return [colour, painted](QPainter &painter, const QRect &area) {
        painter.fillRect(QRect(QPoint(), area.size()), colour);
        if (painted) *painted += area.height();
    };
}

// Stops after the first band.
const BackingStore::Slicing kOneBand{10, [] { return false; }};
const BackingStore::Slicing kAllBands{10, [] { return true; }};

ScreenPlace At(int x, int y, double scale = 1) { return {QRect(x, y, kWidth, kHeight), scale, scale}; }

QImage ShownBy(const Screen &screen, const ScreenPlace &place) {
    QImage image(place.seen.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    screen.CopyTo(painter, place.seen, kPaper);
    return image;
}

} // namespace

TEST(Screen, TheFirstPicture_IsPaintedWhole) {
    Screen screen;
    EXPECT_TRUE(screen.Show(At(0, 0)));
    screen.Update(PaintAll(Qt::red), kOneBand);
    EXPECT_TRUE(screen.IsExact());
}

TEST(Screen, AtAnotherScale_ShowsTheFormerPictureScaledWhereNothingIsPaintedYet) {
    Screen screen;
    screen.Show(At(0, 0));
    screen.Update(
        [](QPainter &painter, const QRect &area) {
            painter.fillRect(QRect(QPoint(), area.size()), Qt::red);
            painter.fillRect(QRect(QPoint(10, 15) - area.topLeft(), QSize(10, 5)), Qt::blue);
        },
        kOneBand);
    EXPECT_TRUE(screen.Show(At(0, 0, 2)));
    screen.Update(PaintAll(Qt::green), kOneBand);
    EXPECT_FALSE(screen.IsExact());
    const QImage shown = ShownBy(screen, At(0, 0, 2));
    EXPECT_EQ(shown.pixelColor(30, 9), QColor(Qt::green));
    EXPECT_EQ(shown.pixelColor(30, 11), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(22, 32), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(38, 38), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(42, 32), QColor(Qt::red));
}

TEST(Screen, WhatTheFormerPictureDidNotHold_IsPaper) {
    Screen screen;
    screen.Show(At(0, 0));
    screen.Update(PaintAll(Qt::red), kOneBand);
    screen.Show(At(0, 0, 0.5));
    screen.Update(PaintAll(Qt::green), kOneBand);
    const QImage shown = ShownBy(screen, At(0, 0, 0.5));
    EXPECT_EQ(shown.pixelColor(5, 15), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(40, 15), kPaper);
}

TEST(Screen, EachUpdate_PaintsABandUntilThePictureIsExact) {
    Screen screen;
    screen.Show(At(0, 0));
    screen.Update(PaintAll(Qt::red), kOneBand);
    screen.Show(At(0, 0, 2));
    int updates = 0, painted = 0;
    while (!screen.IsExact() && updates < 100) {
        screen.Update(PaintAll(Qt::green, &painted), kOneBand);
        ++updates;
    }
    EXPECT_EQ(updates, kHeight / 10);
    EXPECT_EQ(painted, kHeight);
    EXPECT_EQ(ShownBy(screen, At(0, 0, 2)).pixelColor(59, 39), QColor(Qt::green));
}

TEST(Screen, APictureThatNeverBecameExact_IsNotShownAsTheFormer) {
    Screen screen;
    screen.Show(At(0, 0));
    screen.Update(PaintAll(Qt::red), kOneBand);
    screen.Show(At(0, 0, 2));
    screen.Update(PaintAll(Qt::green), kOneBand);
    screen.Show(At(0, 0, 4));
    screen.Update(PaintAll(Qt::blue), kOneBand);
    EXPECT_EQ(ShownBy(screen, At(0, 0, 4)).pixelColor(30, 30), QColor(Qt::red));
}

TEST(Screen, WhatChangedMeanwhile_IsPaintedAtOnceWhereItWasPaintedAlready) {
    Screen screen;
    screen.Show(At(0, 0));
    screen.Update(PaintAll(Qt::red), kOneBand);
    screen.Show(At(0, 0, 2));
    screen.Update(PaintAll(Qt::green), kOneBand);
    screen.Invalidate(QRect(0, 0, kWidth, 20));
    int painted = 0;
    screen.Update(PaintAll(Qt::blue, &painted), kOneBand);
    EXPECT_EQ(painted, 20); // ten rows again, and the next band
    EXPECT_EQ(ShownBy(screen, At(0, 0, 2)).pixelColor(30, 5), QColor(Qt::blue));
}

TEST(Screen, Scrolling_KeepsWhatStaysInSight) {
    Screen screen;
    screen.Show(At(0, 0));
    screen.Update(PaintAll(Qt::red), kOneBand);
    EXPECT_FALSE(screen.Show(At(0, 5)));
    int painted = 0;
    screen.Update(PaintAll(Qt::green, &painted), kAllBands);
    EXPECT_EQ(painted, 5);
    const QImage shown = ShownBy(screen, At(0, 5));
    EXPECT_EQ(shown.pixelColor(30, 34), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(30, 35), QColor(Qt::green));
}

} // namespace diagram::testing
