// Texts of bars that are too short for them.
#include "diagram/model/TextBeside.h"

#include "diagram/model/Calendar.h"
#include "diagram/render/NodeContent.h"
#include "tests/diagram/render/Painting.h"

#include <gtest/gtest.h>

namespace diagram {

namespace {

constexpr int kRectangle = 1;

// A bar from 40 pixels on, 60 below the top, 30 high; the tag "bar" makes it one.
class BesideBars : public ::testing::Test, public Painting {
protected:
    BesideBars() {
        SetCalendarSource(nullptr, [](const Node &node) { return node.Tag() == QStringLiteral("bar"); });
        surface.SetMeasure(&renderer.Measure());
    }
    ~BesideBars() override {
        surface.SetMeasure(nullptr);
        SetCalendarSource(nullptr);
    }
    Node &Bar(float width, const QString &text) {
        Node &node = Add(40, 60, width, 30);
        node.SetShape(kRectangle);
        node.SetFillColor(0xFFFF00);
        node.SetDrawStyle(kTransparentLine);
        node.SetText(text);
        node.SetTag(QStringLiteral("bar"));
        return node;
    }
    // What isn't paper, right of the bar.
    int InkBehind(const Node &node, double zoom = 1) {
        const int right = int((node.Left() + node.Width()) / 15 * zoom) + 1;
        const QRect behind(QPoint(right, 0), QPoint(199, 149));
        const QImage image = Paint(zoom);
        return behind.width() * behind.height() - CountOf(image, behind, qRgb(255, 255, 255));
    }
    int InkInside(const Node &node) {
        const QRect inside =
            QRectF(node.Bounds().topLeft() / 15, node.Bounds().size() / 15).toRect().adjusted(2, 2, -2, -2);
        return inside.width() * inside.height() - CountOf(Paint(), inside, qRgb(0, 255, 255));
    }
    const QString kFair = QStringLiteral("Trade fair");
};

} // namespace

TEST_F(BesideBars, ATextThatWouldHaveToBeBrokenInAWordStandsBehindTheBar) {
    Node &node = Bar(14, kFair);
    EXPECT_GT(InkBehind(node), 20);
    EXPECT_EQ(InkInside(node), 0);
    EXPECT_FALSE(renderer.TextIsCut(node));
    const QRectF place = TextBeside(node, &renderer.Measure());
    EXPECT_GT(place.left(), node.Bounds().right());
    EXPECT_NEAR(place.center().y(), node.Bounds().center().y(), 1);
    Scene scene(surface);
    EXPECT_TRUE(scene.Bounds(node).contains(place)) << "is painted anew where it stands";
}

TEST_F(BesideBars, InsideWhereItsWordsHaveRoom) {
    Node &node = Bar(80, kFair);
    EXPECT_EQ(InkBehind(node), 0);
    EXPECT_GT(InkInside(node), 20);
    EXPECT_TRUE(TextBeside(node, &renderer.Measure()).isEmpty());
}

TEST_F(BesideBars, OnlyThatOfABar) {
    Node &node = Bar(14, kFair);
    node.SetTag(QString());
    EXPECT_EQ(InkBehind(node), 0);
    EXPECT_TRUE(renderer.TextIsCut(node));
}

TEST_F(BesideBars, CanBeReadOnDarkPaper) {
    surface.SetBackColor(0x201510);
    Node &node = Bar(14, kFair);
    node.SetForeColor(0);
    const QImage image = Paint();
    int bright = 0;
    for (int y = 60; y < 90; ++y)
        for (int x = 56; x < 199; ++x) bright += qGray(image.pixel(x, y)) > 150;
    EXPECT_GT(bright, 20);
}

TEST_F(BesideBars, ALongTextIsWrappedAndOneOfManyLinesStaysInside) {
    Node &node = Bar(14, QStringLiteral("Negotiations with suppliers"));
    const QRectF place = TextBeside(node, &renderer.Measure());
    EXPECT_FALSE(place.isEmpty());
    EXPECT_LE(place.width(), kWidestBeside);
    node.SetText(QStringLiteral("Negotiations with suppliers ").repeated(6));
    EXPECT_TRUE(TextBeside(node, &renderer.Measure()).isEmpty());
}

TEST_F(BesideBars, NothingWithoutAText) {
    Node &node = Bar(14, QString());
    EXPECT_TRUE(TextBeside(node, &renderer.Measure()).isEmpty());
    EXPECT_TRUE(TextBeside(Bar(14, kFair), nullptr).isEmpty()) << "and without a measure";
}

} // namespace diagram
