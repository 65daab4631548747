// Texts far longer than anything that can be seen: what is laid out is bounded by what fits.
#include "diagram/render/TextCache.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

const Font kFont(QStringLiteral("DejaVu Sans"), 8);
constexpr int kMegabyte = 1 << 20;

QString Words(const QString &word) { return word.repeated(kMegabyte / word.size()); }

WrapWidth Box(double width, double height) {
    WrapWidth wrap(width);
    wrap.room = height;
    return wrap;
}

} // namespace

class HugeTexts : public ::testing::TestWithParam<const char *> {};

TEST_P(HugeTexts, LayOut_StopsBelowTheRoom) {
    Faces faces;
    const TextBlock block = LayOut(faces, Words(QString::fromUtf8(GetParam())), kFont, Box(1500, 900), 0.1);
    EXPECT_GT(block.height, 900);
    EXPECT_LT(block.lines.size(), 60u);
    EXPECT_LT(block.text.size(), 10000);
}

TEST_P(HugeTexts, WithoutARoom_AreLaidOutToABound) {
    Faces faces;
    for (const double width : {0.0, 1500.0}) {
        const TextBlock block = LayOut(faces, Words(QString::fromUtf8(GetParam())), kFont, width, 0);
        EXPECT_EQ(block.text.size(), kMostCharacters);
    }
}

TEST_P(HugeTexts, FillTheirNode) {
    Painting painting;
    Node &node = painting.Add(10, 10, 120, 100);
    node.SetForeColor(support::Rgb(255, 0, 0));
    node.SetFont(kFont);
    node.SetText(Words(QString::fromUtf8(GetParam())));
    const QImage image = painting.Paint();
    for (const int top : {14, 50, 95}) {
        int inked = 0;
        for (int y = top; y < top + 12; ++y)
            for (int x = 12; x < 128; ++x) inked += qGreen(image.pixel(x, y)) < 200;
        EXPECT_GT(inked, 20) << top;
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, HugeTexts,
                         ::testing::Values("word ", "longwordwithoutend", "line\n",
                                           "\xce\xb1\xce\xb2\xce\xb3 ", "\xd7\x90\xd7\x91\xd7\x92 "));

TEST(HugeTexts, TheSeenLines_AreThoseOfTheWholeText) {
    Faces faces;
    const QString text = QStringLiteral("some words of a text that goes on ").repeated(100);
    const TextBlock whole = LayOut(faces, text, kFont, 1500, 0.1);
    const TextBlock seen = LayOut(faces, text, kFont, Box(1500, 900), 0.1);
    ASSERT_LT(seen.lines.size(), whole.lines.size());
    for (std::size_t i = 0; i < seen.lines.size(); ++i) {
        EXPECT_EQ(seen.lines[i].start, whole.lines[i].start);
        EXPECT_EQ(seen.lines[i].length, whole.lines[i].length);
        EXPECT_EQ(seen.lines[i].baseLine, whole.lines[i].baseLine);
    }
}

TEST(HugeTexts, InTheCache_LeaveRoomForOthers) {
    Faces faces;
    TextCache cache(faces);
    const QString huge = Words(QStringLiteral("word "));
    const TextBlock *small = &cache.Find(QStringLiteral("small"), kFont, 1500, 0.1);
    cache.Find(huge, kFont, Box(1500, 900), 0.1);
    EXPECT_EQ(&cache.Find(QStringLiteral("small"), kFont, 1500, 0.1), small);
    EXPECT_LT(cache.Bytes(), std::size_t(500000));
}

TEST(HugeTexts, ShortTexts_AreLaidOutWholeForAnyRoom) {
    Faces faces;
    TextCache cache(faces);
    const QString text = QStringLiteral("some words ").repeated(20);
    EXPECT_EQ(&cache.Find(text, kFont, Box(600, 100), 0.1), &cache.Find(text, kFont, Box(600, 900), 0.1));
}

} // namespace diagram
