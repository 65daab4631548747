#include "diagram/render/TextCache.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

const Font kFont(QStringLiteral("DejaVu Sans"), 10);

} // namespace

TEST(TextBlock, LineEnds_AreCrLfAndBothTogether) {
    Faces faces;
    EXPECT_EQ(Lines(LayOut(faces, QStringLiteral("a\r\nb\rc\nd"), kFont, 0, 0)),
              QStringList({"a", "b", "c", "d"}));
    EXPECT_EQ(LayOut(faces, QStringLiteral("a\n"), kFont, 0, 0).lines.size(), 2u);
}

TEST(TextBlock, Words_AreWrappedAndTrailingBlanksDropped) {
    Faces faces;
    const double width = LayOut(faces, QStringLiteral("aaa bbb"), kFont, 0, 0).width;
    EXPECT_EQ(Lines(LayOut(faces, QStringLiteral("aaa bbb ccc"), kFont, width, 0)),
              QStringList({"aaa bbb", "ccc"}));
}

TEST(TextBlock, LongWords_AreBroken) {
    Faces faces;
    const TextBlock block = LayOut(faces, QString(60, u'w'), kFont, 1000, 0);
    EXPECT_GT(block.lines.size(), 4u);
    EXPECT_LE(block.width, 1003);
    EXPECT_EQ(Lines(block).join(QString()), QString(60, u'w'));
}

TEST(TextBlock, LongWords_MayTakeTheWidestWidth) {
    Faces faces;
    const double word = LayOut(faces, QStringLiteral("wwwwww"), kFont, 0, 0).width;
    for (const char *text : {"wwwwww i", "wwwwww \u00E9"})
        EXPECT_EQ(
            LayOut(faces, QString::fromUtf8(text), kFont, WrapWidth(word / 2, word * 1.01), 0).lines.size(),
            2u)
            << text;
}

TEST(TextBlock, TextMeasured_FitsItsOwnWidth) {
    Faces faces;
    for (const char *text : {"Some words here", "A-B c--d", "\u00E9t\u00E9 \u00FCber",
                             "\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD"}) {
        const double width = LayOut(faces, QString::fromUtf8(text), kFont, 0, 0).width;
        EXPECT_EQ(LayOut(faces, QString::fromUtf8(text), kFont, width, 0).lines.size(), 1u) << text;
    }
}

TEST(TextBlock, LineBreaks_DoNotDependOnTheScale) {
    Faces faces;
    const QString text = QStringLiteral("The quick brown fox jumps over the lazy dog and runs away from it");
    const QStringList lines = Lines(LayOut(faces, text, kFont, 2000, 0));
    for (double scale : {0.01, 1 / 15.0, 0.1, 0.3})
        EXPECT_EQ(Lines(LayOut(faces, text, kFont, 2000, scale)), lines) << scale;
}

TEST(TextBlock, Direction_IsThatOfTheParagraph) {
    Faces faces;
    const TextBlock block = LayOut(faces, QString::fromUtf8("abc \u05E9\n\u05E9\u05DC abc"), kFont, 0, 0);
    ASSERT_EQ(block.lines.size(), 2u);
    EXPECT_FALSE(block.lines[0].rightToLeft);
    EXPECT_TRUE(block.lines[1].rightToLeft);
}

TEST(TextBlock, EmptyText_HasTheHeightOfALine) {
    Faces faces;
    EXPECT_EQ(LayOut(faces, QString(), kFont, 100, 0.1).lines.size(), 1u);
    EXPECT_GT(LayOut(faces, QString(), kFont, 100, 0.1).height, 150);
}

TEST(TextCache, StaysSmall) {
    Faces faces;
    TextCache cache(faces);
    for (int i = 0; i < 20000; ++i) cache.Find(QStringLiteral("text number %1").arg(i), kFont, 1000, 0.1);
    EXPECT_LT(cache.Bytes(), std::size_t(3) << 20);
}

TEST(Texts, Alignment_PlacesTheTextAtItsSide) {
    for (int alignment = 0; alignment < 9; ++alignment) {
        SCOPED_TRACE(alignment);
        Painting painting;
        Node &node = painting.Add(20, 20, 150, 100);
        node.SetDrawStyle(5);
        node.SetText(QStringLiteral("HH"));
        node.SetAlignment(alignment);
        const QRect ink = Ink(painting.Paint(), QRect(0, 0, 200, 150));
        ASSERT_FALSE(ink.isEmpty());
        const int across = ink.center().x() < 60 ? 0 : ink.center().x() > 130 ? 1 : 2;
        const int down = ink.center().y() < 45 ? 0 : ink.center().y() > 95 ? 2 : 1;
        EXPECT_EQ(across, alignment / 3);
        EXPECT_EQ(down, alignment % 3);
    }
}

TEST(Texts, Margins_MoveTheText) {
    const auto left = [](int margin) {
        Painting painting;
        Node &node = painting.Add(20, 20, 150, 100);
        node.SetDrawStyle(5);
        node.SetText(QStringLiteral("HH"));
        node.SetAlignment(0);
        node.SetxTextMargin(margin);
        node.SetyTextMargin(margin);
        return Ink(painting.Paint(), QRect(0, 0, 200, 150)).topLeft();
    };
    EXPECT_EQ(left(25) - left(5), QPoint(20, 20));
}

TEST(Texts, WhatDoesNotFit_IsCutOffAtTheBox) {
    Painting painting;
    Node &node = painting.Add(60, 50, 60, 30);
    node.SetText(QStringLiteral("word word word word word word word word word word word word"));
    const QImage image = painting.Paint();
    EXPECT_TRUE(QRect(60, 50, 61, 31).contains(Ink(image, QRect(0, 0, 200, 150))));
    EXPECT_FALSE(painting.renderer.TextFits(node));
    node.SetText(QStringLiteral("word"));
    EXPECT_TRUE(painting.renderer.TextFits(node));
}

TEST(Texts, UnderlineAndStrike_AreDrawn) {
    const auto ink = [](bool underline, bool strike) {
        Painting painting;
        Node &node = painting.Add(20, 20, 150, 100);
        node.SetDrawStyle(5);
        node.SetText(QStringLiteral("oooo"));
        node.SetFont(Font(QStringLiteral("DejaVu Sans"), 20, false, false, underline, strike));
        return CountOf(painting.Paint(), 0xFF000000);
    };
    EXPECT_GT(ink(true, false), ink(false, false) + 20);
    EXPECT_GT(ink(false, true), ink(false, false) + 5);
}

TEST(Texts, UnreadableOnes_AreLeftOut) {
    Painting painting;
    Node &node = painting.Add(20, 20, 400, 300);
    node.SetDrawStyle(5);
    node.SetText(QStringLiteral("text"));
    EXPECT_TRUE(Ink(painting.Paint(0.2), QRect(0, 0, 200, 150)).isEmpty());
    node.SetFont(Font(QStringLiteral("DejaVu Sans"), 40));
    EXPECT_FALSE(Ink(painting.Paint(0.2), QRect(0, 0, 200, 150)).isEmpty());
}

TEST(Texts, Measure_GrowsWithTheFontAndWraps) {
    Renderer renderer;
    TextMeasure &measure = renderer.Measure();
    const QSizeF small = measure.Measure(QStringLiteral("some words"), Font(QStringLiteral("Arial"), 8), 0);
    const QSizeF large = measure.Measure(QStringLiteral("some words"), Font(QStringLiteral("Arial"), 16), 0);
    EXPECT_NEAR(large.width(), 2 * small.width(), small.width() * 0.05);
    const QSizeF wrapped =
        measure.Measure(QStringLiteral("some words"), Font(QStringLiteral("Arial"), 8), small.width() * 0.7);
    EXPECT_GT(wrapped.height(), small.height() * 1.8);
    EXPECT_LT(wrapped.width(), small.width());
}

TEST(Texts, MissingFonts_AreReplaced) {
    Renderer renderer;
    for (const char *name : {"No Such Font At All", "MS Sans Serif", ""})
        EXPECT_GT(renderer.Measure().Measure(QStringLiteral("abc"), Font(QLatin1String(name), 8), 0).width(),
                  100)
            << name;
}

} // namespace diagram
