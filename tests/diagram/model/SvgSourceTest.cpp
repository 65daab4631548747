// A drawing opens nothing outside of itself.
#include "diagram/model/SvgSource.h"
#include "diagram/model/Picture.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace diagram;

namespace {

QByteArray Drawing(const QByteArray &content, const QByteArray &before = {}) {
    return before +
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "width=\"20\" "
           "height=\"20\">" +
           content + "</svg>";
}

QByteArray ImageOf(const QByteArray &href, const QByteArray &attribute = "xlink:href") {
    return "<image width=\"20\" height=\"20\" " + attribute + "=\"" + href + "\"/>";
}

QByteArray RedPng() {
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray Data(const QByteArray &type, const QByteArray &bytes) {
    return "data:image/" + type + ";base64," + bytes.toBase64();
}

QColor Middle(const QByteArray &svg) { return Picture::FromBytes(svg).Image().pixelColor(10, 10); }

class References : public ::testing::Test {
protected:
    References() { Write("red.png", RedPng()); }
    QByteArray Write(const char *name, const QByteArray &bytes) {
        QFile file(folder.filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error(name);
        file.write(bytes);
        return QFile::encodeName(file.fileName());
    }
    QTemporaryDir folder;
    QByteArray red = QFile::encodeName(folder.filePath(QStringLiteral("red.png")));
};

} // namespace

TEST_F(References, OfPicturesOutsideAreNotFollowed) {
    const QString former = QDir::currentPath();
    QDir::setCurrent(folder.path());
    for (const QByteArray &target :
         {red, QByteArray("file://") + red, QByteArray("red.png"), QByteArray(" red.png")})
        for (const char *attribute : {"xlink:href", "href"})
            EXPECT_EQ(Middle(Drawing(ImageOf(target, attribute))).alpha(), 0) << target.constData();
    QDir::setCurrent(former);
}

TEST_F(References, OfPicturesInsideAreKept) {
    EXPECT_EQ(Middle(Drawing(ImageOf(Data("png", RedPng())))), QColor(Qt::red));
    EXPECT_EQ(Middle(Drawing("<defs><rect id=\"a\" width=\"20\" height=\"20\" fill=\"red\"/></defs><use "
                             "xlink:href=\"#a\"/>")),
              QColor(Qt::red));
}

TEST_F(References, OfADrawingInsideAreNotFollowed) {
    const QByteArray inner = Drawing(ImageOf(red));
    for (const char *type : {"svg+xml", "png"})
        EXPECT_EQ(Middle(Drawing(ImageOf(Data(type, inner)))).alpha(), 0) << type;
}

TEST_F(References, ToStyleSheetsAreNotFollowed) {
    const QByteArray sheet = Write("a.css", "rect { fill: #ff0000 }");
    const QByteArray rectangle = "<rect width=\"20\" height=\"20\"/>";
    EXPECT_EQ(Middle(Drawing(rectangle, "<?xml-stylesheet href=\"" + sheet + "\" type=\"text/css\"?>")),
              QColor(Qt::black));
    EXPECT_EQ(Middle(Drawing("<style>@import url(" + sheet + ");</style>" + rectangle)), QColor(Qt::black));
}

TEST_F(References, ToEntitiesInsideAreKeptAndOthersAreNot) {
    const QByteArray rectangle = "<rect width=\"20\" height=\"20\" fill=\"&a;\"/>";
    EXPECT_EQ(Middle(Drawing(rectangle, "<!DOCTYPE svg [<!ENTITY a \"red\">]>")), QColor(Qt::red));
    EXPECT_FALSE(
        WithoutReferences(Drawing("<text>&a;</text>", "<!DOCTYPE svg [<!ENTITY a SYSTEM \"" + red + "\">]>"))
            .contains("PNG"));
}

TEST(SvgSource, TheBytesOfThePictureStayAsTheyAre) {
    const QByteArray svg = Drawing(ImageOf("red.png"));
    EXPECT_EQ(Picture::FromBytes(svg).Bytes(), svg);
}

TEST(SvgSource, StylesTextAndPrefixesStay) {
    const QByteArray copy =
        WithoutReferences(Drawing("<style>rect { fill: red }</style><text x=\"1\">a &lt; b</text>"));
    EXPECT_TRUE(copy.contains("<style>rect { fill: red }</style>"));
    EXPECT_TRUE(copy.contains("<text x=\"1\">a &lt; b</text>"));
    EXPECT_TRUE(copy.contains("xmlns:xlink=\"http://www.w3.org/1999/xlink\""));
}

TEST(SvgSource, ACompressedDrawingIsKeptAndNotRead) {
    const QByteArray packed =
        QByteArray::fromHex("1f8b08000000000002ffb3292e4b57a8c8cdc92bb655ca282929b0d2d72f2f2fd72b37d6cb2f4ad7"
                            "37323030d007aa505228cf4c29c9b055b25452c848cd4ccf280131f5ed0032f2d2d63e000000");
    const Picture picture = Picture::FromBytes(packed);
    EXPECT_EQ(picture.Bytes(), packed);
    EXPECT_TRUE(picture.Image().isNull());
    EXPECT_TRUE(picture.ImageFor({50, 50}).isNull());
    EXPECT_FALSE(picture.SizeInTwips().isEmpty());
}
