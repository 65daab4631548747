// Copies of nodes keep their dates, in the same slice and in others.
#include "tests/mainwindow/DatesTest.h"

#include <QClipboard>
#include <QMimeData>

namespace mainwindow::testing {

namespace {

using timeline::DateOfNode;

struct CopiedDates : Strips {
    diagram::Node &plain = AddNode(window, 6000, 4500, QStringLiteral("Plain"));

    CopiedDates() {
        plain.SetSelected(true);
        ProcessEvents();
    }
    void GoToANewSlice() {
        desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Second"));
        window.DoInsertSlice();
        ProcessEvents();
        window.TabStrip().SetTheTab(1);
        ProcessEvents();
        ASSERT_TRUE(Months().isEmpty());
    }
    // "text:date" of each selected node, sorted.
    QStringList Selected(frmMain &in) {
        QStringList dates;
        for (const diagram::Node *each : in.CurrentSurface().SelectedNodes())
            dates << each->Text() + u':' + DateOfNode(*each);
        dates.sort();
        return dates;
    }
    void ExpectCopies(frmMain &in) {
        EXPECT_EQ(Selected(in),
                  QStringList({QStringLiteral("Launch:14 March 2004"), QStringLiteral("Plain:")}));
        EXPECT_FALSE(node.Selected());
    }
};

} // namespace

TEST_F(CopiedDates, ADuplicateHasTheDateOfItsNodeAndGoesByOneUndo) {
    const int nodes = window.CurrentSurface().Nodes().Count();
    const std::size_t links = window.CurrentSurface().Links().size();
    Press(window, QStringLiteral("Ctrl+D"));
    ExpectCopies(window);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), nodes + 2) << "no day or month twice";
    EXPECT_EQ(window.CurrentSurface().Links().size(), links + 1);
    diagram::Link &link = *window.CurrentSurface().Links().back();
    EXPECT_FALSE(link.Selectable());
    EXPECT_TRUE(link.Marked());
    EXPECT_EQ(link.Points().Item(link.Points().Count() - 1).x, 1450) << "on its day";
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), nodes);
    EXPECT_EQ(window.CurrentSurface().Links().size(), links);
    Press(window, QStringLiteral("Ctrl+Y"));
    EXPECT_EQ(window.CurrentSurface().Links().size(), links + 1);
}

TEST_F(CopiedDates, ADraggedCopyToo) {
    const QPointF body = node.Bounds().center() + QPointF(150, 150);
    Drag(window, body, body + QPointF(900, 2400), Qt::ControlModifier);
    ExpectCopies(window);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Links().size(), 1U);
}

TEST_F(CopiedDates, APastedNodeToo) {
    Press(window, QStringLiteral("Ctrl+C"));
    Press(window, QStringLiteral("Ctrl+V"));
    ExpectCopies(window);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Links().size(), 1U);
}

TEST_F(CopiedDates, WhatWasCutComesBackWithItsDate) {
    Press(window, QStringLiteral("Ctrl+X"));
    EXPECT_TRUE(window.CurrentSurface().Links().empty());
    Press(window, QStringLiteral("Ctrl+V"));
    EXPECT_EQ(Selected(window),
              QStringList({QStringLiteral("Launch:14 March 2004"), QStringLiteral("Plain:")}));
}

TEST_F(CopiedDates, AnotherSliceGetsTheMonthsThatItNeeds) {
    Press(window, QStringLiteral("Ctrl+C"));
    GoToANewSlice();
    const int before = window.CurrentSurface().Nodes().Count();
    ConfirmSetupUnseen();
    Press(window, QStringLiteral("Ctrl+V"));
    EXPECT_EQ(Selected(window),
              QStringList({QStringLiteral("Launch:14 March 2004"), QStringLiteral("Plain:")}));
    EXPECT_EQ(Months(), QStringList(QStringLiteral("Mar 2004")));
    EXPECT_TRUE(window.MenuValue(QStringLiteral("mnuViewTimeline")));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_TRUE(Months().isEmpty());
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), before);
}

TEST_F(CopiedDates, UndatedNodesBringNoTimeline) {
    node.SetSelected(false);
    Press(window, QStringLiteral("Ctrl+C"));
    GoToANewSlice();
    Press(window, QStringLiteral("Ctrl+V"));
    EXPECT_EQ(Selected(window), QStringList(QStringLiteral("Plain:")));
    EXPECT_TRUE(Months().isEmpty());
}

TEST_F(CopiedDates, AnotherWindowToo) {
    Press(window, QStringLiteral("Ctrl+C"));
    frmMain &other = NewWindow();
    ConfirmSetupUnseen();
    Press(other, QStringLiteral("Ctrl+V"));
    EXPECT_EQ(Selected(other),
              QStringList({QStringLiteral("Launch:14 March 2004"), QStringLiteral("Plain:")}));
}

TEST_F(CopiedDates, DamagedDatesAreLeftOut) {
    Press(window, QStringLiteral("Ctrl+C"));
    const QString own = QStringLiteral("application/x-velmora-selection"),
                  dates = QStringLiteral("application/x-velmora-dates");
    const QByteArray items = QGuiApplication::clipboard()->mimeData()->data(own);
    ASSERT_EQ(QGuiApplication::clipboard()->mimeData()->data(dates), "2004-03-14\n");
    for (const char *bytes : {"2004-03-14", "2004-13-99\n", "\n\n\n2004-03-14", "\xff", "9999-01-01\n"}) {
        auto *data = new QMimeData;
        data->setData(own, items);
        data->setData(dates, bytes);
        QGuiApplication::clipboard()->setMimeData(data);
        Press(window, QStringLiteral("Ctrl+V"));
        EXPECT_EQ(Selected(window), QStringList({QStringLiteral("Launch:"), QStringLiteral("Plain:")}))
            << bytes;
    }
}

} // namespace mainwindow::testing
