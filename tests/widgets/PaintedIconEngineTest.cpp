#include "widgets/PaintedIconEngine.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>

namespace widgets::testing {

namespace {

class Counting : public PaintedIconEngine {
public:
    explicit Counting(int &painted) : painted_(painted) {}
    QIconEngine *clone() const override { return new Counting(*this); }

protected:
    void Paint(QPainter &painter, const QSize &size, QIcon::Mode) override {
        ++painted_;
        painter.fillRect(QRect(QPoint(), size), QGuiApplication::palette().color(QPalette::Text));
    }

private:
    int &painted_;
};

} // namespace

class PaintedIcons : public ::testing::Test {
protected:
    void TearDown() override { QApplication::setPalette(QPalette()); }
    int painted = 0;
    QIcon icon{new Counting(painted)};
};

TEST_F(PaintedIcons, AreNotPaintedBeforeTheyAreSeen) {
    EXPECT_FALSE(icon.isNull());
    EXPECT_EQ(painted, 0);
}

TEST_F(PaintedIcons, ArePaintedOnceForEachSizeAndMode) {
    for (int again = 0; again < 3; ++again) EXPECT_EQ(icon.pixmap(QSize(16, 16)).size(), QSize(16, 16));
    EXPECT_EQ(painted, 1);
    (void)icon.pixmap(QSize(20, 16));
    EXPECT_EQ(painted, 2);
    (void)icon.pixmap(QSize(16, 16), QIcon::Disabled);
    EXPECT_EQ(painted, 3);
}

TEST_F(PaintedIcons, FollowThePalette) {
    (void)icon.pixmap(QSize(16, 16));
    QPalette red;
    red.setColor(QPalette::Text, Qt::red);
    QApplication::setPalette(red);
    EXPECT_EQ(icon.pixmap(QSize(16, 16)).toImage().pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(painted, 2);
}

TEST_F(PaintedIcons, OfNoSizeAreNotPainted) {
    EXPECT_TRUE(icon.pixmap(QSize(0, 16)).isNull());
    EXPECT_EQ(painted, 0);
}

} // namespace widgets::testing
