#include "diagram/model/Node.h"
#include "diagram/model/ScreenValues.h"
#include "output/print/Fields.h"
#include "tests/output/print/PrintTest.h"

#include <numeric>
#include <QBuffer>
#include <QGuiApplication>
#include <QPalette>
#include <QPdfWriter>
#include <QRegularExpression>

namespace print::testing {

namespace {

constexpr double kTenth = 0.1; // millimetres
constexpr int kDots = 508;     // 20 a millimetre

class PrintSlicesTest : public PrintTest {};

// A box in each corner of three by two pages of 180 by 267 millimetres.
void FillSixPages(diagram::Surface &surface) {
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            AddBox(surface, column * 180 + 60, row * 267 + 100, 40, 20,
                   QStringLiteral("Box%1%2").arg(column).arg(row));
    AddBox(surface, 0, 0, 20, 10, QStringLiteral("First"));
    AddBox(surface, 3 * 180 - 21, 2 * 267 - 11, 20, 10, QStringLiteral("Last"));
}

TEST_F(PrintSlicesTest, TheFileHasThePagesThatTheNumbersSay) {
    FillSixPages(AddSlice());
    setup.FitToPage = false;
    EXPECT_EQ(WritePdf(), 6);
    EXPECT_EQ(sheets.layouts[0].HorizontalPages(), 3);
    EXPECT_EQ(sheets.layouts[0].VerticalPages(), 2);
    EXPECT_EQ(PagesOfPdf(), 6);
    EXPECT_NEAR(PageSizeOfPdf().width(), 210, 0.5);
    EXPECT_NEAR(PageSizeOfPdf().height(), 297, 0.5);
}

TEST_F(PrintSlicesTest, EachPageHasItsPartAcrossFirst) {
    FillSixPages(AddSlice());
    setup.FitToPage = false;
    WritePdf();
    EXPECT_EQ(TextOfPdf(1), QStringLiteral("First Box00"));
    EXPECT_EQ(TextOfPdf(2), QStringLiteral("Box10"));
    EXPECT_EQ(TextOfPdf(3), QStringLiteral("Box20"));
    EXPECT_EQ(TextOfPdf(4), QStringLiteral("Box01"));
    EXPECT_EQ(TextOfPdf(6), QStringLiteral("Box21 Last"));
}

TEST_F(PrintSlicesTest, LandscapeTurnsThePagesAndTheirNumber) {
    FillSixPages(AddSlice());
    setup.FitToPage = false;
    setup.Orientation = kLandscape;
    EXPECT_EQ(WritePdf(), 9);
    EXPECT_EQ(PagesOfPdf(), 9);
    EXPECT_NEAR(PageSizeOfPdf().width(), 297, 0.5);
}

TEST_F(PrintSlicesTest, FitPutsEverythingOnOnePage) {
    FillSixPages(AddSlice());
    for (const int orientation : {kPortrait, kLandscape}) {
        setup.Orientation = orientation;
        EXPECT_EQ(WritePdf(), 1);
        EXPECT_EQ(PagesOfPdf(), 1);
        for (const char *text : {"First", "Last", "Box11"})
            EXPECT_TRUE(TextOfPdf(1).contains(QLatin1String(text)));
    }
}

TEST_F(PrintSlicesTest, WhatIsSeenComesOutToATenthOfAMillimetre) {
    AddBox(AddSlice(), 30, 40, 50, 25);
    AddBox(*map.slices[0].surface, 250, 300, 33, 44);
    setup.FitToPage = false;
    setup.Header = QStringLiteral("Header");
    WritePdf();
    ASSERT_EQ(PagesOfPdf(), 4);
    for (const int page : {1, 4}) {
        const QRectF onPaper = RedBounds(PictureOfPdf(page, kDots), kDots / 25.4);
        const QRectF seen = RedBounds(PictureOfPreview(page, kDots / 25.4), kDots / 25.4);
        EXPECT_NEAR(onPaper.left(), seen.left(), kTenth) << page;
        EXPECT_NEAR(onPaper.top(), seen.top(), kTenth) << page;
        EXPECT_NEAR(onPaper.right(), seen.right(), kTenth) << page;
        EXPECT_NEAR(onPaper.bottom(), seen.bottom(), kTenth) << page;
    }
}

TEST_F(PrintSlicesTest, BoxesStandWhereTheLayoutPutsThem) {
    diagram::Surface &surface = AddSlice();
    AddBox(surface, 30, 40, 50, 25);
    setup.FitToPage = false;
    setup.margins = {20, 30, 15, 15};
    WritePdf();
    const QRectF box = RedBounds(PictureOfPdf(1, kDots), kDots / 25.4);
    const QRectF extent = sheets.layouts[0].Tile(0);
    EXPECT_NEAR(box.left(), 20 + 30 - extent.left() / kTwipsOfMillimetre, 0.3); // half a border line
    EXPECT_NEAR(box.top(), 30 + 40 - extent.top() / kTwipsOfMillimetre, 0.3);
    EXPECT_NEAR(box.width(), 50, 0.6);
    EXPECT_NEAR(box.height(), 25, 0.6);
}

TEST_F(PrintSlicesTest, ZoomScalesOnPaper) {
    diagram::Surface &surface = AddSlice();
    AddBox(surface, 0, 0, 60, 40);
    surface.SetxZoom(50);
    surface.SetyZoom(200);
    setup.FitToPage = false;
    WritePdf();
    const QRectF box = RedBounds(PictureOfPdf(1, kDots), kDots / 25.4);
    EXPECT_NEAR(box.width(), 30, 0.6);
    EXPECT_NEAR(box.height(), 80, 0.9);
}

TEST_F(PrintSlicesTest, HeaderAndFooterStandOnEveryPageWithTheirFields) {
    AddBox(AddSlice(QStringLiteral("Costs")), 0, 0, 170, 300);
    map.title = QStringLiteral("Plan");
    map.file = QStringLiteral("Plan.map");
    map.made = QDateTime(QDate(2024, 5, 17), QTime(9, 0));
    setup.FitToPage = false;
    setup.Header = QStringLiteral("R&d &[Title] &[Slice] &[File]");
    setup.Footer = QStringLiteral("Page &[Page] of &[Pages]");
    ASSERT_EQ(WritePdf(), 2);
    EXPECT_EQ(TextOfPdf(1), QStringLiteral("R&d Plan Costs Plan.map Page 1 of 2"));
    EXPECT_EQ(TextOfPdf(2), QStringLiteral("R&d Plan Costs Plan.map Page 2 of 2"));
}

TEST_F(PrintSlicesTest, NothingReachesIntoTheMargins) {
    AddBox(AddSlice(), 0, 0, 400, 400);
    setup.FitToPage = false;
    WritePdf();
    const QRectF box = RedBounds(PictureOfPdf(1, kDots), kDots / 25.4);
    EXPECT_GE(box.left(), 15 - kTenth);
    EXPECT_LE(box.right(), 195 + kTenth);
    EXPECT_LE(box.bottom(), 282 + kTenth);
    EXPECT_GE(box.right(), 195 - kTenth);
}

TEST_F(PrintSlicesTest, AnEmptySliceIsOneEmptyPage) {
    AddSlice();
    EXPECT_EQ(WritePdf(), 1);
    EXPECT_EQ(PagesOfPdf(), 1);
    EXPECT_EQ(TextOfPdf(1), QString());
}

TEST_F(PrintSlicesTest, HiddenItemsAreNeitherPaintedNorCounted) {
    diagram::Surface &surface = AddSlice();
    AddBox(surface, 0, 0, 20, 20, QStringLiteral("Seen"));
    AddBox(surface, 900, 900, 20, 20, QStringLiteral("Unseen")).SetHidden(true);
    setup.FitToPage = false;
    EXPECT_EQ(WritePdf(), 1);
    EXPECT_EQ(TextOfPdf(1), QStringLiteral("Seen"));
}

TEST_F(PrintSlicesTest, TheGridIsPrintedOnlyWhenItIsChosen) {
    diagram::Surface &surface = AddSlice();
    AddBox(surface, 0, 0, 20, 20);
    surface.SetGridLines(true);
    surface.Screen().SetGridColor(support::Rgb(0, 0, 255));
    const auto isBlue = [&] {
        WritePdf();
        const QImage page = PictureOfPdf(1, 200);
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (qBlue(page.pixel(x, y)) > qRed(page.pixel(x, y)) + 30) return true;
        return false;
    };
    EXPECT_FALSE(isBlue());
    setup.grid = true;
    EXPECT_TRUE(isBlue());
    surface.SetGridLines(false);
    EXPECT_FALSE(isBlue());
}

TEST_F(PrintSlicesTest, SelectionAndThemeLeaveNoTrace) {
    diagram::Surface &surface = AddSlice();
    diagram::Node &node = AddBox(surface, 0, 0, 60, 40, QStringLiteral("Text"));
    setup.Header = QStringLiteral("Header");
    const QImage before = PictureOfPreview(1, 3);
    const QPalette former = QGuiApplication::palette();
    QPalette dark(QColor(30, 30, 30), QColor(20, 20, 20));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    QGuiApplication::setPalette(dark);
    node.SetSelected(true);
    EXPECT_EQ(PictureOfPreview(1, 3), before);
    QGuiApplication::setPalette(former);
}

TEST_F(PrintSlicesTest, PicturesKeepTheirPixels) {
    QImage image(900, 600, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x % 256, y % 256, (x * y) % 256));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    AddBox(AddSlice(), 0, 0, 20, 15).SetPicture(diagram::Picture::FromBytes(bytes));
    WritePdf();
    const QString list = Ask(QStringLiteral("pdfimages"), {QStringLiteral("-list"), PdfPath()});
    EXPECT_TRUE(list.contains(QRegularExpression(QStringLiteral("\\s900\\s+600\\s")))) << qPrintable(list);
}

TEST_F(PrintSlicesTest, PagesToBeGluedOverlapAndTellTheirPlace) {
    AddBox(AddSlice(), 0, 0, 300, 40);
    AddBox(*map.slices[0].surface, 173, 60, 6, 6, QString()); // within the overlap of 172 and 180
    setup.FitToPage = false;
    setup.marks = true;
    ASSERT_EQ(WritePdf(), 2);
    EXPECT_EQ(TextOfPdf(1), QStringLiteral("A1"));
    EXPECT_EQ(TextOfPdf(2), QStringLiteral("B1"));
    const QRectF first = RedBounds(PictureOfPdf(1, kDots), kDots / 25.4);
    EXPECT_NEAR(first.right(), 195, kTenth); // up to the margin
    setup.marks = false;
    WritePdf();
    EXPECT_EQ(TextOfPdf(1), QString());
}

TEST_F(PrintSlicesTest, SlicesFollowEachOtherAsTheyAreChosen) {
    for (const char *name : {"One", "Two", "Three"})
        AddBox(AddSlice(QLatin1String(name)), 0, 0, 30, 20, QLatin1String(name));
    map.current = 1;
    EXPECT_EQ(WritePdf(), 1);
    EXPECT_EQ(TextOfPdf(1), QStringLiteral("Two"));
    setup.slices = Slices::All;
    EXPECT_EQ(WritePdf(), 3);
    EXPECT_EQ(TextOfPdf(3), QStringLiteral("Three"));
    setup.slices = Slices::Chosen;
    setup.chosen = {2, 0};
    EXPECT_EQ(WritePdf(), 2);
    EXPECT_EQ(TextOfPdf(1), QStringLiteral("One"));
    EXPECT_EQ(TextOfPdf(2), QStringLiteral("Three"));
    setup.chosen = {};
    EXPECT_EQ(LayOutSlices(map, setup).sheets.size(), 0U);
}

TEST_F(PrintSlicesTest, ARangeLeavesTheNumbersOfPagesAsTheyAre) {
    FillSixPages(AddSlice());
    setup.FitToPage = false;
    setup.Footer = QStringLiteral("&[Page]/&[Pages]");
    setup.margins.setBottom(15 - kLineOfText);
    setup.range = {2, 3};
    EXPECT_EQ(WritePdf(), 2);
    EXPECT_EQ(sheets.all, 6);
    EXPECT_TRUE(TextOfPdf(1).contains(QStringLiteral("2/6")));
    setup.range = {7, 9};
    EXPECT_TRUE(LayOutSlices(map, setup).sheets.empty());
}

TEST_F(PrintSlicesTest, GivingUpEndsBeforeTheNextPage) {
    FillSixPages(AddSlice());
    setup.FitToPage = false;
    sheets = LayOutSlices(map, setup);
    QPdfWriter writer(PdfPath());
    int pages = 0;
    const std::vector<int> order{0, 1, 2, 3};
    EXPECT_EQ(PrintSlices(map, setup, sheets)
                  .PaintAll(
                      writer, order, [&] { writer.newPage(), ++pages; }, [](int done) { return done < 2; }),
              2);
    EXPECT_EQ(pages, 1);
}

TEST_F(PrintSlicesTest, ALongHeaderEndsWithinTheMargins) {
    AddBox(AddSlice(), 0, 0, 20, 20);
    setup.Header = QString(400, u'W');
    WritePdf();
    EXPECT_TRUE(TextOfPdf(1).contains(QStringLiteral("W…")));
}

} // namespace

} // namespace print::testing
