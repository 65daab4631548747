#include "diagram/export/Export.h"

#include "diagram/export/PictureKinds.h"
#include "diagram/export/PngFile.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Shapes.h"
#include "support/Error.h"
#include "tests/diagram/export/Filled.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <utility>

namespace diagram {

namespace {

QString AllText(const QByteArray &svg) {
    QXmlStreamReader reader(svg);
    QString text;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::Characters && !reader.isWhitespace())
            text += reader.text().toString() + QLatin1Char('|');
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return text;
}

int CountOf(const QByteArray &text, const char *part) { return int(text.count(part)); }

QByteArray OneNode(const QString &text) {
    Surface surface;
    surface.Nodes().Add(0, 0, 30000, 750).SetText(text);
    return ExportPicture(surface, PictureFormat::Svg);
}

} // namespace

TEST(Export, Svg_IsWellFormedAndHoldsTheTexts) {
    Surface surface;
    testing::Fill(surface);
    const QString text = AllText(ExportPicture(surface, PictureFormat::Svg));
    EXPECT_TRUE(text.contains(QStringLiteral("Rectangle")));
    EXPECT_EQ(text.count(QStringLiteral("label|")), 43);
}

TEST(Export, Svg_EscapesWhatXmlForbids) {
    EXPECT_EQ(AllText(OneNode(QStringLiteral("a<b> & \"c\""))), QStringLiteral("a<b> & \"c\"|"));
    EXPECT_EQ(AllText(OneNode(QString::fromUtf8("x\u0001\u000By"))), QStringLiteral("xy|"));
    EXPECT_EQ(AllText(OneNode(QStringLiteral("half ") + QChar(0xD800) + QStringLiteral(" pair"))),
              QStringLiteral("half  pair|"));
    EXPECT_EQ(AllText(OneNode(QString::fromUtf8("\U0001F600 \u00E9"))),
              QString::fromUtf8("\U0001F600 \u00E9|"));
}

TEST(Export, Svg_FontNamesCannotBreakOut) {
    Surface surface;
    Node &node = surface.Nodes().Add(0, 0, 3000, 750);
    node.SetText(QStringLiteral("t"));
    node.SetFont(Font(QStringLiteral("a\"b'c<\\"), 9, true, true));
    const QByteArray svg = ExportPicture(surface, PictureFormat::Svg);
    EXPECT_EQ(AllText(svg), QStringLiteral("t|"));
    EXPECT_TRUE(svg.contains("font-weight=\"bold\" font-style=\"italic\""));
    EXPECT_TRUE(svg.contains("font-size=\"180\""));
}

TEST(Export, Svg_KeepsThePicturesBytesOnce) {
    QImage image(9, 7, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const Picture picture = Picture::FromImage(image);
    Surface surface;
    for (int i = 0; i < 3; ++i) surface.Nodes().Add(float(i * 2000), 0, 1500, 750).SetPicture(picture);
    const QByteArray svg = ExportPicture(surface, PictureFormat::Svg);
    EXPECT_EQ(CountOf(svg, picture.Bytes().toBase64().constData()), 1);
    EXPECT_EQ(CountOf(svg, "<use "), 3);
}

TEST(Export, Svg_DashesHaveNoBlankBehindThem) {
    Surface surface;
    surface.Nodes().Add(0, 0, 1500, 750).SetDrawStyle(1);
    const QByteArray svg = ExportPicture(surface, PictureFormat::Svg);
    const qsizetype at = svg.indexOf("stroke-dasharray=\"") + 18;
    ASSERT_GT(at, 18);
    const QByteArray dashes = svg.mid(at, svg.indexOf('"', at) - at);
    EXPECT_EQ(dashes.split(' ').size(), 2) << dashes.constData();
    EXPECT_EQ(dashes.trimmed(), dashes);
}

TEST(Export, Svg_CanBeShown) {
    Surface surface;
    testing::Fill(surface);
    QByteArray svg = ExportPicture(surface, PictureFormat::Svg);
    const QImage image = QImage::fromData(svg, "svg");
    const QImage png = ExportImage(surface);
    ASSERT_FALSE(image.isNull());
    EXPECT_NEAR(image.width(), png.width(), 2);
    EXPECT_NEAR(image.height(), png.height(), 2);
}

TEST(Export, Pdf_IsOnePageOfTheExtentAndItsMargin) {
    Surface surface;
    surface.Nodes().Add(1000, 1000, 1200, 600).SetDrawWidth(0);
    ExportOptions options;
    options.margin = 400;
    const QByteArray pdf = ExportPicture(surface, PictureFormat::Pdf, options);
    EXPECT_TRUE(pdf.startsWith("%PDF-1."));
    EXPECT_EQ(CountOf(pdf, "/Type /Page\n"), 1);
    const qsizetype box = pdf.indexOf("/MediaBox [");
    ASSERT_GT(box, 0);
    const QList<QByteArray> sides =
        pdf.mid(box + 11, pdf.indexOf(']', box) - box - 11).simplified().split(' ');
    EXPECT_NEAR(sides[2].toDouble(), (1200 + 800) / 20.0, 5);
    EXPECT_NEAR(sides[3].toDouble(), (600 + 800) / 20.0, 5);
}

TEST(Export, Png_HasTheLongestSideAskedFor) {
    Surface surface;
    testing::Fill(surface);
    ExportOptions options;
    options.pixels = 500;
    const QByteArray png = ExportPicture(surface, PictureFormat::Png, options);
    const QImage image = QImage::fromData(png, "png");
    EXPECT_EQ(std::max(image.width(), image.height()), 500);
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), ExportImage(surface, options));
}

TEST(Export, Png_OfAHugeSurfaceStaysInItsBounds) {
    Surface surface;
    surface.Nodes().Add(0, 0, 10, 10);
    surface.Nodes().Add(3e7f, 0, 10, 10);
    const QImage image = ExportImage(surface);
    EXPECT_EQ(image.width(), 16384);
    EXPECT_GE(image.height(), 1);
}

TEST(Export, HiddenItemsAndTheGrid_AreLeftOut) {
    Surface surface;
    surface.SetGridLines(true);
    surface.Nodes().Add(0, 0, 1000, 1000).SetFillColor(support::Rgb(1, 2, 3));
    Node &hidden = surface.Nodes().Add(90000, 0, 1000, 1000);
    hidden.SetHidden(true);
    hidden.SetText(QStringLiteral("secret"));
    EXPECT_LT(ExportImage(surface).width(), 200);
    EXPECT_FALSE(ExportPicture(surface, PictureFormat::Svg).contains("secret"));
    EXPECT_EQ(ExportImage(surface).pixel(3, 3), 0xFFFFFFFF);
}

TEST(Export, EmptySurface_GivesAnEmptyPage) {
    Surface surface;
    for (PictureFormat format : {PictureFormat::Png, PictureFormat::Svg, PictureFormat::Pdf})
        EXPECT_GT(ExportPicture(surface, format).size(), 50);
}

TEST(Export, File_IsWrittenByItsEnding) {
    QTemporaryDir folder;
    Surface surface;
    testing::Fill(surface);
    for (const char *name : {"a.png", "b.SVG", "c.pdf"}) {
        const QString path = folder.filePath(QLatin1String(name));
        ExportPictureFile(surface, path);
        EXPECT_GT(QFile(path).size(), 1000) << name;
    }
}

TEST(Export, OtherEndings_AreAnErrorThatNamesThePath) {
    Surface surface;
    const support::Error error =
        tests::ErrorOf([&] { ExportPictureFile(surface, QStringLiteral("/x/y.tiff")); });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_TRUE(error.Description().contains(QStringLiteral("/x/y.tiff")));
}

TEST(Export, ScaleAndResolutionMakeThePixelsOfAPngWhichTellsTheResolution) {
    Surface surface;
    surface.Nodes().Add(0, 0, 1440, 720).SetDrawWidth(0);
    ExportOptions options;
    options.margin = 0;
    const QSizeF page = PictureSize(surface, options);
    const auto sizeAt = [&](double scale, int dots) {
        options.scale = scale;
        options.dotsPerInch = dots;
        const QImage image = QImage::fromData(ExportPicture(surface, PictureFormat::Png, options), "png");
        EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, dots, 0.02);
        EXPECT_EQ(image.size(), PngSize(page, options));
        return image.width();
    };
    const int usual = sizeAt(1, 96);
    EXPECT_NEAR(usual, page.width() / 15, 1);
    EXPECT_NEAR(sizeAt(2, 96), 2 * usual, 1);
    EXPECT_NEAR(sizeAt(0.5, 96), usual / 2, 1);
    EXPECT_NEAR(sizeAt(1, 192), 2 * usual, 1);
    options.pixels = 300;
    EXPECT_EQ(sizeAt(5, 300), 300) << "the side that is given holds";
    options.pixels = 0;
    options.scale = 1000;
    EXPECT_EQ(PngSize(page, options).width(), 16384);
}

TEST(Export, ScaleMakesSvgAndPdfLargerAndLeavesTheDrawingAsItIs) {
    Surface surface;
    testing::Fill(surface);
    ExportOptions twice;
    twice.scale = 2;
    const auto number = [](const QByteArray &svg, const QByteArray &name) {
        const qsizetype at = svg.indexOf(name + "=\"") + name.size() + 2;
        return svg.mid(at, svg.indexOf('"', at) - at).toDouble();
    };
    const QByteArray svg = ExportPicture(surface, PictureFormat::Svg),
                     large = ExportPicture(surface, PictureFormat::Svg, twice);
    EXPECT_NEAR(number(large, "width"), 2 * number(svg, "width"), 0.1);
    EXPECT_NEAR(number(large, "height"), 2 * number(svg, "height"), 0.1);
    EXPECT_EQ(large.mid(large.indexOf("viewBox")), svg.mid(svg.indexOf("viewBox")));
    const auto box = [](const QByteArray &pdf) {
        const qsizetype at = pdf.indexOf("/MediaBox [") + 11;
        return pdf.mid(at, pdf.indexOf(']', at) - at).simplified().split(' ')[2].toDouble();
    };
    EXPECT_NEAR(box(ExportPicture(surface, PictureFormat::Pdf, twice)),
                2 * box(ExportPicture(surface, PictureFormat::Pdf)), 2);
}

TEST(Export, TheBackgroundIsAsShownWhiteOrNone) {
    Surface surface;
    surface.SetBackColor(support::Rgb(1, 2, 3));
    QImage dots(40, 40, QImage::Format_RGB32);
    dots.fill(qRgb(200, 10, 10));
    surface.SetPicture(Picture::FromImage(dots));
    Node &node = surface.Nodes().Add(1500, 1500, 1000, 1000);
    node.SetFillColor(support::Rgb(10, 20, 30));
    const auto cornerOf = [&](PictureBackground background) {
        ExportOptions options;
        options.background = background;
        const QImage image = QImage::fromData(ExportPicture(surface, PictureFormat::Png, options), "png");
        EXPECT_EQ(image.pixelColor(image.rect().center()), QColor(10, 20, 30));
        EXPECT_EQ(image.convertToFormat(QImage::Format_ARGB32),
                  ExportImage(surface, options).convertToFormat(QImage::Format_ARGB32));
        return image.pixelColor(2, 2);
    };
    EXPECT_EQ(cornerOf(PictureBackground::AsShown), QColor(1, 2, 3));
    EXPECT_EQ(cornerOf(PictureBackground::White), QColor(Qt::white));
    EXPECT_EQ(cornerOf(PictureBackground::Transparent).alpha(), 0);
    node.SetLeft(0);
    node.SetTop(0);
    node.SetWidth(300);
    ExportOptions white;
    white.background = PictureBackground::White;
    ExportOptions none;
    none.background = PictureBackground::Transparent;
    const auto rectangles = [&](const ExportOptions &options) {
        const QByteArray svg = ExportPicture(surface, PictureFormat::Svg, options);
        return std::pair(CountOf(svg, "<image"), CountOf(svg, "#010203"));
    };
    EXPECT_GT(rectangles({}).first, 0);
    EXPECT_GT(rectangles({}).second, 0);
    EXPECT_EQ(rectangles(white), std::pair(0, 0));
    EXPECT_EQ(rectangles(none), std::pair(0, 0));
    for (const PictureFormat format : {PictureFormat::Pdf, PictureFormat::Wmf, PictureFormat::Emf})
        EXPECT_LT(ExportPicture(surface, format, none).size(), ExportPicture(surface, format).size());
}

TEST(Export, APictureThatIsGivenUpWritesNoFile) {
    QTemporaryDir folder;
    Surface surface;
    for (int i = 0; i < 200; ++i) surface.Nodes().Add(float(100 * i), 0, 90, 90);
    ExportOptions options;
    int asked = 0;
    options.goOn = [&asked] { return ++asked < 2; };
    for (const PictureKind &kind : kPictureKinds) {
        asked = 0;
        const QString path = folder.filePath(QStringLiteral("a.") + QLatin1String(kind.ending));
        EXPECT_FALSE(ExportPictureFile(surface, path, options)) << kind.ending;
        EXPECT_FALSE(QFile::exists(path)) << kind.ending;
        EXPECT_LT(asked, 5) << "what is left is not painted";
    }
    options.goOn = [] { return true; };
    EXPECT_TRUE(ExportPictureFile(surface, folder.filePath(QStringLiteral("a.png")), options));
}

TEST(Export, MissingFolder_IsAnErrorThatNamesThePath) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("none/y.svg"));
    Surface surface;
    const support::Error error = tests::ErrorOf([&] { ExportPictureFile(surface, path); });
    EXPECT_EQ(error.Number(), 76);
    EXPECT_TRUE(error.Description().contains(QStringLiteral("none")));
}

TEST(PngFile, IsReadBackAsItWas) {
    for (const QSize size : {QSize(37, 19), QSize(1, 5), QSize(5, 1), QSize(2, 2)}) {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x * 7 + 1, y * 13, x * y));
        const QImage before = image.copy();
        const QByteArray kept = PngFile(image);
        EXPECT_EQ(image, before);
        EXPECT_EQ(QImage::fromData(kept, "png").convertToFormat(QImage::Format_RGB32), before);
        EXPECT_EQ(PngFile(std::move(image)), kept);
    }
}

TEST(PngFile, KeepsAlphaWhereThereIsAny) {
    for (const QSize size : {QSize(37, 19), QSize(1, 5), QSize(5, 1), QSize(1, 1)}) {
        QImage image(size, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgba(x * 7, y, 3, 5 * x + 7 * y));
        const QImage read = QImage::fromData(PngFile(image), "png");
        EXPECT_EQ(read.convertToFormat(QImage::Format_ARGB32), image);
        EXPECT_EQ(PngFile(QImage(size, QImage::Format_RGB32)).at(25), '\x02') << "three colours";
    }
}

} // namespace diagram
