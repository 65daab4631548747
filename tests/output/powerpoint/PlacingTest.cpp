#include "output/powerpoint/Placing.h"

#include <gtest/gtest.h>

namespace powerpoint::testing {

TEST(Placing, TheRoomOfABlankSlideIsTheWholeSlide) {
    EXPECT_EQ(PictureRoom(kLayoutBlank, kWideSlide), QRectF(0, 0, 960, 540));
    EXPECT_EQ(PictureRoom(kLayoutBlank, kStandardSlide), QRectF(0, 0, 720, 540));
}

TEST(Placing, TheRoomBelowATitleBegins20BelowThePlaceForContent) {
    const QRectF content = ContentPlace(kWideSlide);
    EXPECT_EQ(content, QRectF(66, 143.75, 828, 342.625));
    EXPECT_EQ(PictureRoom(kLayoutTitle, kWideSlide), QRectF(66, 163.75, 828, 322.625));
    EXPECT_EQ(ContentPlace(kStandardSlide), QRectF(36, 126, 648, 356.375));
    EXPECT_EQ(PictureRoom(kLayoutTitle, kStandardSlide), QRectF(36, 146, 648, 336.375));
    EXPECT_FALSE(TitlePlace(kWideSlide).intersects(content));
}

TEST(Placing, AFlatPictureIs20LessWideThanItsRoom) {
    EXPECT_EQ(PlacePicture({0, 0, 960, 540}, {9400, 4700}), QRectF(0, 0, 940, 470));
    EXPECT_EQ(PlacePicture({66, 163.75, 828, 322.625}, {8080, 800}), QRectF(66, 163.75, 808, 80));
}

TEST(Placing, APictureMayBeJustAsHighAsItsRoom) {
    EXPECT_EQ(PlacePicture({0, 0, 960, 540}, {940, 540}), QRectF(0, 0, 940, 540));
}

TEST(Placing, AHigherOneIs20LessHighThanTheRoomAndKeepsItsProportions) {
    EXPECT_EQ(PlacePicture({0, 0, 960, 540}, {940, 541}).height(), 520);
    EXPECT_EQ(PlacePicture({10, 20, 960, 540}, {1000, 2000}), QRectF(10, 20, 260, 520));
}

TEST(Placing, ASmallPictureIsMadeLarger) {
    EXPECT_EQ(PlacePicture({0, 0, 720, 540}, {7, 1}), QRectF(0, 0, 700, 100));
}

TEST(Placing, APictureWithoutSizeStillHasAPlace) {
    EXPECT_EQ(PlacePicture({0, 0, 960, 540}, {0, 0}), QRectF(0, 0, 520, 520));
}

} // namespace powerpoint::testing
