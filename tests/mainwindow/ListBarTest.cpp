// The list bar alone, with real events: no window and no templates.
#include "mainwindow/templates/ListBar.h"
#include "mainwindow/templates/ListBarDelegate.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QImage>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace mainwindow::testing {

class ListBars : public ::testing::Test {
protected:
    ListBars() {
        list.resize(220, 400);
        for (const char *caption : {"Templates", "Plans", "People"})
            list.AddBar(QLatin1String(caption), QLatin1Char('/') + QLatin1String(caption) + QLatin1Char('/'));
        for (const char *caption : {"Alpha", "Beta", "Gamma", "Budget year", "Omega"}) AddItem(0, caption);
        AddItem(1, "Roadmap");
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
        list.setFocus();
    }
    void AddItem(int bar, const char *caption) {
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::red);
        list.AddItem(bar, {QLatin1String(caption), list.BarKey(bar) + QLatin1String(caption), {}, pixmap});
    }
    void ClickOn(const QRect &row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list.viewport(), button, {}, row.center());
    }
    QString Current() const {
        const auto place = list.CurrentItem();
        return place ? list.Item(place->bar, place->item).caption : list.currentIndex().data().toString();
    }
    void Wheel(int turn, Qt::KeyboardModifiers modifiers) {
        QWheelEvent wheel(QPointF(20, 20), list.viewport()->mapToGlobal(QPointF(20, 20)), {}, {0, turn},
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(list.viewport(), &wheel);
    }
    void Rest(const QPoint &at) {
        QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
        QApplication::sendEvent(list.viewport(), &help);
    }

    ListBar list{nullptr};
};

TEST_F(ListBars, AClickOpensABarAndFoldsTheOneBefore) {
    QSignalSpy opened(&list, &ListBar::BarClick);
    EXPECT_EQ(list.CurrentBar(), -1);
    ClickOn(list.BarRect(0));
    EXPECT_EQ(list.CurrentBar(), 0);
    ClickOn(list.BarRect(1));
    EXPECT_EQ(list.CurrentBar(), 1);
    EXPECT_EQ(opened, QList<QVariantList>({{0}, {1}}));
    ClickOn(list.BarRect(1));
    EXPECT_EQ(list.CurrentBar(), -1);
    EXPECT_EQ(opened.count(), 2);
}

TEST_F(ListBars, ABarWithoutItemsCanBeOpened) {
    QSignalSpy opened(&list, &ListBar::BarClick);
    ClickOn(list.BarRect(2));
    EXPECT_EQ(list.CurrentBar(), 2);
    list.FoldBar(2);
    QTest::keyClick(&list, Qt::Key_Right);
    EXPECT_EQ(list.CurrentBar(), 2);
    EXPECT_EQ(opened.count(), 2);
}

TEST_F(ListBars, ADoubleClickIsOneClick) {
    list.OpenBar(0);
    QSignalSpy clicked(&list, &ListBar::ItemClick);
    const QPoint at = list.ItemRect({0, 1}).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(clicked, QList<QVariantList>({{0, 1}}));
}

TEST_F(ListBars, OtherButtonsClickNothing) {
    list.OpenBar(0);
    QSignalSpy clicked(&list, &ListBar::ItemClick);
    ClickOn(list.ItemRect({0, 1}), Qt::RightButton);
    ClickOn(list.ItemRect({0, 1}), Qt::MiddleButton);
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ListBars, KeysWalkOpenAndClick) {
    list.OpenBar(0);
    QSignalSpy clicked(&list, &ListBar::ItemClick);
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(Current(), QStringLiteral("Templates"));
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(Current(), QStringLiteral("Alpha"));
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(clicked, QList<QVariantList>({{0, 0}, {0, 1}}));
    QTest::keyClick(&list, Qt::Key_Left);
    EXPECT_EQ(Current(), QStringLiteral("Templates"));
    QTest::keyClick(&list, Qt::Key_Left);
    EXPECT_EQ(list.CurrentBar(), -1);
    QTest::keyClick(&list, Qt::Key_Right);
    EXPECT_EQ(list.CurrentBar(), 0);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(Current(), QStringLiteral("People"));
    QTest::keyClick(&list, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(list.CurrentBar(), 2);
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(ListBars, TypingFindsAnItem) {
    list.OpenBar(0);
    QTest::keyClicks(&list, QStringLiteral("bu"));
    EXPECT_EQ(Current(), QStringLiteral("Budget year"));
}

TEST_F(ListBars, KeysAskForWhatIsDoneToItems) {
    list.OpenBar(0);
    QSignalSpy rename(&list, &ListBar::RenameAsked), remove(&list, &ListBar::DeleteAsked),
        left(&list, &ListBar::Left);
    list.SetCurrentItem({0, 2});
    QTest::keyClick(&list, Qt::Key_F2);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(rename, QList<QVariantList>({{0, 2}}));
    EXPECT_EQ(remove, QList<QVariantList>({{0, 2}}));
    QTest::keyClick(&list, Qt::Key_Home);
    QTest::keyClick(&list, Qt::Key_F2);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(rename.count() + remove.count(), 2);
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_EQ(left.count(), 1);
}

TEST_F(ListBars, TheMenuComesByMouseAndByKey) {
    list.OpenBar(0);
    QSignalSpy asked(&list, &ListBar::MenuAsked);
    const QPoint at = list.ItemRect({0, 1}).center();
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, at, list.viewport()->mapToGlobal(at));
    QApplication::sendEvent(list.viewport(), &mouse);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list.viewport(), &key);
    const QPoint blank(10, list.viewport()->height() - 4);
    QContextMenuEvent beside(QContextMenuEvent::Mouse, blank, list.viewport()->mapToGlobal(blank));
    QApplication::sendEvent(list.viewport(), &beside);
    const QPoint place = list.viewport()->mapToGlobal(at);
    EXPECT_EQ(asked, QList<QVariantList>(
                         {{0, 1, place}, {0, 1, place}, {-1, -1, list.viewport()->mapToGlobal(blank)}}));
}

TEST_F(ListBars, IconsGrowByTheWheelInSteps) {
    QSignalSpy changed(&list, &ListBar::IconSideChanged);
    EXPECT_EQ(list.IconSide(), 48);
    Wheel(120, Qt::NoModifier);
    EXPECT_EQ(list.IconSide(), 48);
    Wheel(120, Qt::ControlModifier);
    EXPECT_EQ(list.IconSide(), 64);
    for (int i = 0; i < 9; ++i) Wheel(120, Qt::ControlModifier);
    EXPECT_EQ(list.IconSide(), 96);
    EXPECT_FALSE(list.CanStepIcons(1));
    for (int i = 0; i < 9; ++i) Wheel(-120, Qt::ControlModifier);
    EXPECT_EQ(list.IconSide(), 24);
    list.SetIconSide(60);
    EXPECT_EQ(list.IconSide(), 64);
    EXPECT_EQ(changed.count(), 2 + 4 + 1);
}

TEST_F(ListBars, RowsFollowTheIcons) {
    list.OpenBar(0);
    const int before = list.ItemRect({0, 0}).height();
    list.SetIconSide(96);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.ItemRect({0, 0}).height() - before, 96 - 48);
}

TEST_F(ListBars, RestingOnAnItemAsksForItsTipAndLeavingEndsIt) {
    list.OpenBar(0);
    QSignalSpy asked(&list, &ListBar::TipAsked), over(&list, &ListBar::TipOver);
    const QRect row = list.ItemRect({0, 2});
    QTest::mouseMove(list.viewport(), row.center());
    Rest(row.center());
    EXPECT_EQ(asked,
              QList<QVariantList>({{0, 2, QRect(list.viewport()->mapToGlobal(row.topLeft()), row.size())}}));
    QTest::mouseMove(list.viewport(), list.ItemRect({0, 3}).center());
    EXPECT_EQ(asked.count(), 2) << "the next one at once";
    EXPECT_EQ(over.count(), 0);
    QTest::mouseMove(list.viewport(), list.BarRect(0).center());
    EXPECT_EQ(over.count(), 1);
    Rest(row.center());
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(over.count(), 2);
}

TEST_F(ListBars, ItemsAreFoundChangedAndTakenAway) {
    const auto place = list.FindItem(QStringLiteral("/Templates/Gamma"));
    ASSERT_TRUE(place);
    EXPECT_EQ(place->item, 2);
    ListBarItem item = list.Item(0, 2);
    item.caption = QStringLiteral("Delta");
    item.tag = QStringLiteral("EXTERNAL");
    list.SetItem(0, 2, item);
    EXPECT_EQ(list.Item(0, 2).caption, QStringLiteral("Delta"));
    EXPECT_EQ(list.Item(0, 2).tag, QStringLiteral("EXTERNAL"));
    list.RemoveItem(0, 2);
    EXPECT_EQ(list.ItemCount(0), 4);
    EXPECT_FALSE(list.FindItem(QStringLiteral("/Templates/Gamma")));
    EXPECT_FALSE(list.FindItem(QString()));
}

TEST_F(ListBars, ScreenReadersHearBarsAndItems) {
    list.OpenBar(0);
    QAccessible::setActive(true);
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&list);
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    QStringList names;
    for (int child = 0; child < tree->childCount(); ++child)
        names << tree->child(child)->text(QAccessible::Name);
    EXPECT_TRUE(names.contains(QStringLiteral("Templates")));
    EXPECT_TRUE(names.contains(QStringLiteral("Budget year")));
    EXPECT_FALSE(names.contains(QStringLiteral("Roadmap"))); // its bar is folded
    QAccessible::setActive(false);
}

// The colour in the middle of the heading, right of its caption.
QColor HeadingColour(ListBar &list) {
    const QRect row = list.BarRect(1);
    return list.viewport()->grab(row).toImage().pixelColor(row.width() - 30, 3);
}

TEST_F(ListBars, HeadingsHaveTheirColourOnALightThemeAndADarkOneOnADark) {
    list.SetBarBackColor(1, QColor(0xE0, 0xE0, 0xE0));
    EXPECT_EQ(HeadingColour(list).name(), QStringLiteral("#e0e0e0"));
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Text, Qt::white);
    list.setPalette(dark);
    EXPECT_LT(HeadingColour(list).lightness(), 90);
    EXPECT_GT(HeadingColour(list).lightness(), 0x20);
}

} // namespace mainwindow::testing
