#include "dialogs/ListIndex.h"

#include <gtest/gtest.h>
#include <QComboBox>
#include <QListWidget>

namespace dialogs::testing {

TEST(ListIndex, FindsTheFirstExactMatch) {
    QComboBox list;
    list.addItems({"arial", "Arial", "Arial Black", "Arial"});
    EXPECT_EQ(DoFindIndex2(list, QStringLiteral("Arial")), 1);
    EXPECT_EQ(DoFindIndex2(list, QStringLiteral("ARIAL")), -1);
    DoSetIndex2(list, QStringLiteral("Arial Black"), false);
    EXPECT_EQ(list.currentIndex(), 2);
    DoSetIndex2(list, QStringLiteral("Courier"), false);
    EXPECT_EQ(list.currentIndex(), -1);
    EXPECT_EQ(list.count(), 4);
    DoSetIndex2(list, QStringLiteral("Courier"), true);
    EXPECT_EQ(list.currentIndex(), 4);
    EXPECT_EQ(list.itemText(4), QStringLiteral("Courier"));
}

TEST(ListIndex, FindsEntriesByTheirData) {
    QComboBox list;
    list.addItem(QStringLiteral("one"), 1);
    list.addItem(QStringLiteral("seven"), 7);
    EXPECT_EQ(DoFindIndex(list, 7), 1);
    DoSetIndex(list, 7);
    EXPECT_EQ(list.currentIndex(), 1);
    DoSetIndex(list, 3);
    EXPECT_EQ(list.currentIndex(), -1);
    EXPECT_EQ(list.count(), 2);
}

TEST(ListIndex, FindsRowsOfAListInTheSameWay) {
    QListWidget list;
    for (const auto &[text, value] : {std::pair("one", 1), std::pair("Seven", 7), std::pair("Seven", 8)}) {
        auto *item = new QListWidgetItem(QLatin1String(text), &list);
        item->setData(Qt::UserRole, value);
    }
    EXPECT_EQ(DoFindIndex2(list, QStringLiteral("Seven")), 1);
    EXPECT_EQ(DoFindIndex2(list, QStringLiteral("seven")), -1);
    EXPECT_EQ(DoFindIndex(list, 8), 2);
    DoSetIndex(list, 7);
    EXPECT_EQ(list.currentRow(), 1);
    DoSetIndex(list, 3);
    EXPECT_EQ(list.currentRow(), -1);
}

} // namespace dialogs::testing
