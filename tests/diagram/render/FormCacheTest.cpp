#include "diagram/render/FormCache.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

constexpr int kEllipse = 0;

QImage Square(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

TEST(FormCache, Kept_IsFoundByItsWholeLook) {
    FormCache cache;
    const FormLook look{3, 0, 40, 20, 1, 0, 0xFF0000FF, true, 0xFFFFFFFF};
    cache.Keep(look, Square(8));
    ASSERT_TRUE(cache.Find(look));
    EXPECT_EQ(cache.Find(look)->width(), 8);
    for (int FormLook::*part : {&FormLook::shape, &FormLook::orientation, &FormLook::width, &FormLook::height,
                                &FormLook::line, &FormLook::style}) {
        FormLook other = look;
        ++(other.*part);
        EXPECT_FALSE(cache.Find(other));
    }
    for (QRgb FormLook::*part : {&FormLook::lineColour, &FormLook::fill}) {
        FormLook other = look;
        other.*part ^= 1;
        EXPECT_FALSE(cache.Find(other));
    }
    FormLook empty = look;
    empty.filled = false;
    EXPECT_FALSE(cache.Find(empty));
}

TEST(FormCache, ManyLargePictures_MakeRoomForTheNewest) {
    FormCache cache;
    FormLook look;
    for (look.width = 0; look.width < 20; ++look.width) cache.Keep(look, Square(600));
    EXPECT_FALSE(cache.Find(FormLook()));
    --look.width;
    EXPECT_TRUE(cache.Find(look));
}

// At places that are no whole pixels each.
TEST(FormCache, NodesOfOneLook_ArePaintedAlikeWhereverTheyLie) {
    Painting painting;
    const QPointF places[] = {{10, 10}, {80.3F, 20.6F}, {20.5F, 80.25F}};
    for (const QPointF &at : places) {
        Node &node = painting.Add(float(at.x()), float(at.y()), 50, 40);
        node.SetShape(kEllipse);
        node.SetFillColor(support::Rgb(255, 255, 0));
    }
    const QImage image = painting.Paint();
    const auto at = [&](const QPointF &place) {
        return image.copy(QRect(int(place.x()) - 3, int(place.y()) - 3, 58, 48));
    };
    EXPECT_EQ(at(places[0]), at(places[1]));
    EXPECT_EQ(at(places[0]), at(places[2]));
    EXPECT_GT(CountOf(at(places[0]), qRgb(255, 255, 0)), 1000);
}

} // namespace diagram
