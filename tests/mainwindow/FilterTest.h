// What the tests of the lists of groups and levels, which are the filter, share.
#pragma once

#include "document/Tags.h"
#include "mainwindow/controls/TickBox.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAbstractItemView>
#include <QTest>

namespace mainwindow::testing {

// A window of a map with the groups "Sales" and, ticked, "Finance", and the levels "1" and, ticked, "2".
struct FilterTest : WindowTest {
    frmMain &window = NewWindow();
    TickBox &groups = window.ssDBGroups(), &levels = window.ssDBLevels();

    // A node of that group and level, both counted from 1.
    diagram::Node &Tagged(int group, int level, float left = 300) {
        diagram::Node &node = AddNode(window, left, 300);
        document::SetTag(node, document::tags::kGroup, window.clsSettings().Groups().Item(group).Key);
        document::SetTag(node, document::tags::kLevel, window.clsSettings().Levels().Item(level).Key);
        return node;
    }
    void Open(TickBox &box) {
        QTest::mouseClick(&box, Qt::LeftButton);
        ProcessEvents();
        ASSERT_TRUE(box.view()->isVisible());
    }
    void Close(TickBox &box) {
        QTest::keyClick(box.view(), Qt::Key_Escape);
        ProcessEvents();
    }
    void ClickRow(TickBox &box, int row) {
        QAbstractItemView *list = box.view();
        const QRect at = list->visualRect(list->model()->index(row, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at.center());
        ProcessEvents();
    }
};

} // namespace mainwindow::testing
