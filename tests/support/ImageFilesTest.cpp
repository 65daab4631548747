#include "support/ImageFiles.h"

#include <gtest/gtest.h>

using namespace support;

TEST(ImageFiles, AreToldByWhatTheyBeginWith) {
    EXPECT_EQ(ImageKindOf("\x89PNG\r\n"), &kPng);
    EXPECT_EQ(ImageKindOf("\xFF\xD8\xFF\xE0 and so on"), &kJpeg);
    EXPECT_EQ(ImageKindOf("GIF87a"), &kGif);
    EXPECT_EQ(ImageKindOf("GIF89a"), &kGif);
    for (const char *other : {"", "GIF", "\x89PN", "BM", "<svg/>", " GIF89a"})
        EXPECT_EQ(ImageKindOf(other), nullptr) << other;
}

TEST(ImageFiles, APngIsTheSamePictureAgain) {
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(qRgba(10, 200, 30, 128));
    const QByteArray png = PngOf(image);
    EXPECT_EQ(ImageKindOf(png), &kPng);
    EXPECT_EQ(QImage::fromData(png).convertToFormat(QImage::Format_ARGB32), image);
}
