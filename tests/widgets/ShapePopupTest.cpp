#include "widgets/ShapePopup.h"

#include "widgets/ShapeGrid.h"

#include <gtest/gtest.h>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace widgets::testing {

TEST(ShapePopup, GoesWithAChoiceAndWithEscape) {
    QWidget window;
    window.show();
    ShapePopup popup(&window);
    QSignalSpy chosen(&popup.Grid(), &ShapeGrid::Chosen);
    popup.PopUp({10, 10, 20, 20});
    EXPECT_TRUE(popup.isVisible());
    QTest::keyClick(&popup.Grid().Words(), Qt::Key_Escape);
    EXPECT_FALSE(popup.isVisible());
    popup.PopUp({10, 10, 20, 20});
    QTest::keyClicks(&popup.Grid().Words(), "octo");
    QTest::keyClick(&popup.Grid().Words(), Qt::Key_Escape);
    EXPECT_TRUE(popup.isVisible());
    QTest::keyClicks(&popup.Grid().Words(), "octo");
    QTest::keyClick(&popup.Grid().Words(), Qt::Key_Return);
    EXPECT_FALSE(popup.isVisible());
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.first().first().toInt(), 15);
}

// Without a name to show, the line for it is no band below the pictures.
TEST(ShapePopup, HasOneGround) {
    QWidget window;
    ShapePopup popup(&window);
    popup.PopUp(QRect(20, 20, 30, 30));
    const QImage picture = popup.grab().toImage();
    const QRect name(popup.Grid().Name().mapTo(&popup, QPoint()), popup.Grid().Name().size());
    EXPECT_EQ(picture.pixelColor(name.center()), popup.palette().color(QPalette::Base));
    EXPECT_EQ(picture.pixelColor(2, name.top() - 2), popup.palette().color(QPalette::Base));
    popup.hide();
}

} // namespace widgets::testing
