#include "diagram/model/Font.h"
#include "diagram/model/Picture.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <limits>
#include <QBuffer>
#include <QTemporaryDir>
#include <QtEndian>

using namespace diagram;

namespace {

QByteArray Encoded(const QImage &image, const char *format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QImage Red(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

} // namespace

TEST(Font, TheDefaultIsArial8) {
    EXPECT_EQ(Font(), Font(QStringLiteral("Arial"), 8));
    EXPECT_EQ(Font().Hash(), Font(QStringLiteral("Arial"), 8).Hash());
}

TEST(Font, IsEqualByItsSixValues) {
    const Font font(QStringLiteral("Courier"), 9, true, false, true, false);
    Font other = font;
    EXPECT_EQ(other, font);
    other.SetItalic(true);
    EXPECT_FALSE(other == font);
    EXPECT_FALSE(font.Italic());
    other.SetItalic(false);
    EXPECT_EQ(other, font);
}

TEST(Font, SizesAreKeptToFourPlacesWithinTheirRange) {
    EXPECT_EQ(Font(QStringLiteral("A"), 8.25).Size(), 8.25);
    EXPECT_EQ(Font(QStringLiteral("A"), 9.750049).Size(), 9.75);
    for (double bad : {0.0, -1.0, 2161.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(tests::NumberOf([&] { Font().SetSize(bad); }), 380) << bad;
    }
}

TEST(Picture, KeepsTheBytesOfEveryFormat) {
    for (const char *format : {"PNG", "JPG", "BMP"}) {
        const QByteArray bytes = Encoded(Red(7, 5), format);
        const Picture picture = Picture::FromBytes(bytes);
        EXPECT_EQ(picture.Bytes(), bytes);
        EXPECT_EQ(picture.PixelSize(), QSize(7, 5));
        EXPECT_EQ(picture.Image().size(), QSize(7, 5));
    }
}

TEST(Picture, IsEqualByItsBytesAndSharedByCopies) {
    const Picture a = Picture::FromImage(Red(2, 2)), b = Picture::FromImage(Red(2, 2));
    Picture c;
    c = a;
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.Identity(), c.Identity());
    EXPECT_FALSE(a == Picture());
    EXPECT_TRUE(Picture().IsNull());
    EXPECT_TRUE(Picture().Image().isNull());
}

TEST(Picture, BytesThatAreNoPictureAreError481) {
    EXPECT_EQ(tests::NumberOf([] { Picture::FromBytes("no picture"); }), 481);
    EXPECT_EQ(tests::NumberOf([] { Picture::FromBytes({}); }), 481);
    EXPECT_EQ(tests::NumberOf([] { Picture::FromImage({}); }), 481);
}

TEST(Picture, AHeaderOfTooManyPixelsIsError481) {
    QByteArray bytes = Encoded(Red(4, 4), "BMP");
    for (int i : {20, 24}) bytes[i] = 0x7F; // third byte of width and of height
    EXPECT_EQ(tests::NumberOf([&] { Picture::FromBytes(bytes); }), 481);
}

TEST(Picture, BrokenDataBehindAHeaderGiveNoImage) {
    const QByteArray bytes = Encoded(Red(64, 64), "PNG");
    const Picture picture = Picture::FromBytes(bytes.first(bytes.size() / 2));
    EXPECT_EQ(picture.PixelSize(), QSize(64, 64));
    EXPECT_EQ(picture.Bytes().size(), bytes.size() / 2);
    EXPECT_TRUE(picture.Image().isNull());
}

TEST(Picture, MeasuresByTheResolutionOfTheFile) {
    EXPECT_EQ(Picture::FromImage(Red(10, 20)).SizeInTwips(), QSizeF(150, 300));
    QImage fine = Red(300, 300);
    fine.setDotsPerMeterX(11811); // 300 an inch
    fine.setDotsPerMeterY(11811);
    EXPECT_NEAR(Picture::FromImage(fine).SizeInTwips().width(), 1440, 1);
}

TEST(Picture, AMissingFileIsError53) {
    QTemporaryDir folder;
    EXPECT_EQ(tests::NumberOf([&] { Picture::FromFile(folder.filePath(QStringLiteral("none.png"))); }), 53);
    const QString path = folder.filePath(QStringLiteral("a.dat"));
    ASSERT_TRUE(Red(3, 3).save(path, "PNG"));
    EXPECT_EQ(Picture::FromFile(path).PixelSize(), QSize(3, 3));
}

TEST(Picture, MetafilesAreKnownAndMeasuredByTheirHead) {
    const QByteArray wmf = QByteArray::fromHex("d7cdc69a0000"
                                               "00000000d002d002"
                                               "a00500000000"
                                               "0000"
                                               "0100090000030c000000000003000000000003000000 0000");
    const Picture picture = Picture::FromBytes(wmf); // half an inch
    EXPECT_TRUE(picture.IsDrawing());
    EXPECT_EQ(picture.Bytes(), wmf);
    EXPECT_EQ(picture.SizeInTwips(), QSizeF(720, 720));
    EXPECT_EQ(picture.PixelSize(), QSize(48, 48));
    EXPECT_EQ(picture.ImageFor({300, 300}).size(), QSize(300, 300));
}

TEST(Picture, AMetafileOfAnAbsurdSizeIsError481) {
    QByteArray emf(108, '\0');
    const auto put = [&](int at, quint32 value) { qToLittleEndian(value, emf.data() + at); };
    put(0, 1), put(4, 108), put(32, 0x7FFFFFFF), put(36, 0x7FFFFFFF), put(40, 0x464D4520);
    put(72, 1000), put(76, 1000), put(80, 100), put(84, 100);
    EXPECT_EQ(tests::NumberOf([&] { Picture::FromBytes(emf); }), 481);
}

TEST(Picture, AnSvgOfAnAbsurdSizeIsError481) {
    EXPECT_EQ(tests::NumberOf([] {
                  Picture::FromBytes(
                      "<svg xmlns='http://www.w3.org/2000/svg' width='2147483647' height='2147483647'/>");
              }),
              481);
}
