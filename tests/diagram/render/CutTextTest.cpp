// Texts without room end with whole lines and an ellipsis.
#include "diagram/render/CutText.h"

#include "diagram/export/Export.h"
#include "diagram/model/ScreenValues.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

const Font kFont(QStringLiteral("DejaVu Sans"), 10);
const QChar kEllipsis(0x2026);

// Without line and fill: only its text is seen.
Node &AddText(Painting &painting, const QRectF &box, const QString &text, int alignment = 7) {
    Node &node = painting.Add(float(box.left()), float(box.top()), float(box.width()), float(box.height()));
    node.SetShape(1);
    node.SetDrawStyle(5);
    node.SetFont(kFont);
    node.SetText(text);
    node.SetAlignment(alignment);
    return node;
}

const QString kWords = QStringLiteral("Ägj word word word word word word word word word word word word");

} // namespace

TEST(CutText, LastLine_EndsWithAnEllipsisAndKeepsTheWidth) {
    Faces faces;
    const WrapWidth wrap(1500);
    const TextBlock whole = LayOut(
        faces, QStringLiteral("one two three four five six seven eight nine ten eleven"), kFont, wrap, 0);
    ASSERT_GT(whole.lines.size(), 3U);
    for (int lines = 1; lines < int(whole.lines.size()); ++lines) {
        const TextBlock cut = CutAfter(faces, whole, lines, wrap, 0.1);
        ASSERT_EQ(int(cut.lines.size()), lines);
        EXPECT_TRUE(Lines(cut).back().endsWith(kEllipsis)) << lines;
        EXPECT_EQ(Lines(cut).mid(0, lines - 1), Lines(whole).mid(0, lines - 1));
        EXPECT_LE(cut.width, 1500 + 4);
        EXPECT_EQ(cut.height, whole.lines[size_t(lines) - 1].bottom);
        EXPECT_FALSE(cut.lines.back().runs.empty());
    }
}

TEST(CutText, BlankRest_IsNoneAndGetsNoEllipsis) {
    Faces faces;
    const TextBlock whole = LayOut(faces, QStringLiteral("one\n \n\n"), kFont, 1500, 0);
    EXPECT_FALSE(HasMoreThan(whole, 1));
    EXPECT_EQ(Lines(CutAfter(faces, whole, 1, 1500, 0)), QStringList(QStringLiteral("one")));
    EXPECT_TRUE(HasMoreThan(whole, 0));
    EXPECT_FALSE(HasMoreThan(whole, 9));
}

TEST(CutText, CharactersOfTwoUnitsAndMarks_GoWhole) {
    Faces faces;
    const QString text = QString::fromUtf8("\U0001F600\U0001F600e\u0301e\u0301\u0301 x\nmore");
    for (const double width : {100.0, 200.0, 300.0, 400.0, 600.0}) {
        const TextBlock whole = LayOut(faces, text, kFont, width, 0);
        const QString last = Lines(CutAfter(faces, whole, 1, width, 0)).back();
        EXPECT_TRUE(last.endsWith(kEllipsis));
        const QString kept = last.chopped(1);
        EXPECT_EQ(kept, text.left(kept.size())) << width;
        EXPECT_FALSE(text[kept.size()].isMark() || text[kept.size()].isLowSurrogate()) << width;
    }
}

TEST(CutText, RightToLeft_EndsAtTheLeft) {
    Faces faces;
    const QString text = QString::fromUtf8("\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD").repeated(9);
    const TextBlock whole = LayOut(faces, text, kFont, 1500, 0);
    const TextBlock cut = CutAfter(faces, whole, 2, 1500, 0.1);
    EXPECT_TRUE(cut.lines.back().rightToLeft);
    EXPECT_TRUE(Lines(cut).back().endsWith(kEllipsis));
    EXPECT_LE(cut.lines.back().width, 1500 + 4);
}

TEST(CutText, PaintedInEveryAlignment_LiesWhollyInTheBox) {
    for (int alignment = 0; alignment < 9; ++alignment) {
        for (const int height : {24, 30, 37, 45, 52, 60}) {
            SCOPED_TRACE(testing::Message() << alignment << " " << height);
            Painting cut;
            Node &node = AddText(cut, QRectF(40, 40, 70, height), kWords, alignment);
            const QRect ink = Ink(cut.Paint());
            ASSERT_FALSE(ink.isEmpty());
            EXPECT_TRUE(QRect(40, 40, 70, height).contains(ink));
            EXPECT_TRUE(cut.renderer.TextIsCut(node));
            node.SetBounds(600, 600, 1050, 15000);
            EXPECT_FALSE(cut.renderer.TextIsCut(node));
        }
    }
}

TEST(CutText, LinesSeen_AreThoseOfATallerBox) {
    Painting tall, low;
    AddText(tall, QRectF(40, 10, 70, 130), kWords, 6);
    AddText(low, QRectF(40, 10, 70, 50), kWords, 6);
    const QImage whole = tall.Paint(), cut = low.Paint();
    const int lineHeight = 15;
    for (int y = 10; y < 10 + lineHeight; ++y)
        for (int x = 0; x < 200; ++x) ASSERT_EQ(whole.pixel(x, y), cut.pixel(x, y)) << x << " " << y;
}

TEST(CutText, TextThatFits_IsLeftAlone) {
    Painting painting;
    Node &node = AddText(painting, QRectF(40, 40, 120, 60), QStringLiteral("some words"));
    EXPECT_FALSE(painting.renderer.TextIsCut(node));
    node.SetText({});
    EXPECT_FALSE(painting.renderer.TextIsCut(node));
}

TEST(CutText, BoxLowerThanALine_ShowsTheLineWhereItsLettersHaveRoom) {
    Painting painting;
    Node &node = AddText(painting, QRectF(40, 40, 120, 13), QStringLiteral("some"));
    const QRect ink = Ink(painting.Paint());
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_TRUE(QRect(40, 40, 120, 13).contains(ink));
    EXPECT_FALSE(painting.renderer.TextIsCut(node));
    node.SetBounds(600, 600, 1800, 60);
    EXPECT_TRUE(Ink(painting.Paint()).isEmpty()) << "parts of letters";
    EXPECT_TRUE(painting.renderer.TextIsCut(node));
    node.SetBounds(600, 600, 0, 0);
    EXPECT_TRUE(Ink(painting.Paint()).isEmpty());
}

TEST(CutText, BoxNarrowerThanALetter_ShowsNone) {
    Painting painting;
    Node &node = AddText(painting, QRectF(40, 40, 4, 100), QStringLiteral("WWW"));
    EXPECT_TRUE(Ink(painting.Paint()).isEmpty());
    EXPECT_TRUE(painting.renderer.TextIsCut(node));
}

TEST(CutText, BothTexts_AreCutAsOne) {
    Painting painting;
    Node &node = AddText(painting, QRectF(40, 40, 80, 40), QStringLiteral("first"));
    node.SetEvent(kWords);
    EXPECT_FALSE(painting.renderer.TextIsCut(node));
    painting.surface.Screen().SetShowsBothTexts(true);
    EXPECT_TRUE(painting.renderer.TextIsCut(node));
    EXPECT_TRUE(QRect(40, 40, 80, 40).contains(Ink(painting.Paint())));
}

TEST(CutText, BesideAPicture_EndsAtTheBox) {
    for (const int alignment : {1, 4, 7}) {
        SCOPED_TRACE(alignment);
        Painting painting;
        Node &node = AddText(painting, QRectF(40, 20, 90, 80), kWords, alignment);
        QImage white(20, 20, QImage::Format_RGB32);
        white.fill(Qt::white);
        node.SetPicture(Picture::FromImage(white));
        node.SetPicturePos(9);
        const QRect ink = Ink(painting.Paint());
        ASSERT_FALSE(ink.isEmpty());
        EXPECT_TRUE(QRect(40, 20, 90, 80).contains(ink));
        EXPECT_TRUE(painting.renderer.TextIsCut(node));
    }
}

TEST(CutText, VectorTargets_GetTheSameLines) {
    Painting painting;
    AddText(painting, QRectF(40, 40, 90, 40),
            QStringLiteral("alpha beta gamma delta epsilon zeta eta theta"));
    const QByteArray svg = ExportPicture(painting.surface, PictureFormat::Svg);
    EXPECT_TRUE(svg.contains("alpha"));
    EXPECT_TRUE(svg.contains(QString(kEllipsis).toUtf8()));
    EXPECT_FALSE(svg.contains("theta"));
}

} // namespace diagram
