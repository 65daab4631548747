#include "diagram/view/BackingStore.h"

#include <gtest/gtest.h>
#include <QPainter>

namespace diagram::testing {

namespace {

// A colour for each pixel of the surface, so that a wrong place shows.
QRgb ColourAt(int x, int y) { return qRgb(x & 255, y & 255, ((x >> 8) * 16 + (y >> 8)) & 255); }

void PaintColours(QPainter &painter, const QRect &area) {
    for (int y = 0; y < area.height(); ++y)
        for (int x = 0; x < area.width(); ++x)
            painter.fillRect(x, y, 1, 1, QColor::fromRgb(ColourAt(area.x() + x, area.y() + y)));
}

QImage ShownBy(const BackingStore &store, const QRect &seen) {
    QImage image(seen.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    store.CopyTo(painter, seen);
    return image;
}

int WrongPixels(const QImage &image, const QRect &seen) {
    int wrong = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            wrong += image.pixel(x, y) != ColourAt(seen.x() + x, seen.y() + y);
    return wrong;
}

} // namespace

TEST(BackingStore, Scrolling_PaintsOnlyTheStrips) {
    BackingStore store;
    qint64 painted = 0;
    const auto paint = [&](QPainter &painter, const QRect &area) {
        painted += area.width() * area.height();
        PaintColours(painter, area);
    };
    QRect seen(0, 0, 60, 40);
    store.Show(seen);
    store.Update(paint);
    EXPECT_EQ(painted, 60 * 40);
    for (const QPoint &step :
         {QPoint(7, 0), QPoint(0, -9), QPoint(-30, 11), QPoint(25, 25), QPoint(-100, -3)}) {
        painted = 0;
        const QRect before = seen;
        seen.translate(step);
        store.Show(seen);
        store.Update(paint);
        EXPECT_EQ(WrongPixels(ShownBy(store, seen), seen), 0) << step.x() << "," << step.y();
        const QRect kept = seen & before;
        EXPECT_LE(painted, 60 * 40 - kept.width() * kept.height() + 40 * 40);
    }
}

TEST(BackingStore, Invalidate_PaintsOnlyWhatIsSeen) {
    BackingStore store;
    const QRect seen(100, 100, 50, 50);
    store.Show(seen);
    store.Update(PaintColours);
    std::vector<QRect> painted;
    store.Invalidate(QRect(0, 0, 110, 120));
    store.Invalidate(QRect(500, 500, 10, 10));
    store.Update([&](QPainter &, const QRect &area) { painted.push_back(area); });
    QRect all;
    for (const QRect &area : painted) all |= area;
    EXPECT_EQ(all, QRect(100, 100, 10, 20));
}

TEST(RectList, Add_JoinsOverlappingRectsAndKeepsTheListShort) {
    RectList list;
    list.Add(QRect(0, 0, 100, 100));
    list.Add(QRect(50, 0, 100, 100));
    list.Add(QRect());
    ASSERT_EQ(list.Rects().size(), 1U);
    EXPECT_EQ(list.Rects()[0], QRect(0, 0, 150, 100));
    for (int i = 0; i < 1000; ++i) list.Add(QRect(i * 500, i * 300, 80, 80));
    EXPECT_LE(list.Rects().size(), 24U);
    for (int i = 0; i < 1000; ++i) {
        bool covered = false;
        for (const QRect &rect : list.Rects())
            covered = covered || rect.contains(QRect(i * 500, i * 300, 80, 80));
        EXPECT_TRUE(covered) << i;
    }
}

} // namespace diagram::testing
