// The hints in the status bar on what a press would do, and the text of an empty page.
#include "diagram/view/SurfaceView.h"
#include "mainwindow/slices/HintText.h"
#include "mainwindow/window/WindowStatus.h"
#include "tests/mainwindow/WindowTest.h"

#include <QTest>

namespace mainwindow::testing {

namespace {

class PageHints : public WindowTest {
protected:
    void Point(frmMain &window, const QPointF &at) {
        QTest::mouseMove(window.CurrentView().viewport(), PixelOf(window, at));
        ProcessEvents();
    }
};

const QString kPage = QStringLiteral("Drag to draw a Node. Shift and a drag selects.");

} // namespace

TEST_F(PageHints, TheStatusBarSaysWhatADragOrAClickWouldDo) {
    frmMain &window = NewWindow();
    AddNode(window, 1500, 1500);
    Point(window, {6000, 6000});
    EXPECT_EQ(Status(window), kPage);
    Point(window, {1800, 1800});
    EXPECT_EQ(Status(window),
              QStringLiteral("Drag to move the Node, with Ctrl to copy it. Click and type to write in it."));
}

TEST_F(PageHints, AMessageStaysUntilThePointerMovesToSomethingElse) {
    frmMain &window = NewWindow();
    AddNode(window, 1500, 1500);
    Point(window, {6000, 6000});
    window.Status().TellInPassing(QStringLiteral("Saved"));
    Point(window, {6300, 6000});
    EXPECT_EQ(Status(window), QStringLiteral("Saved"));
    Point(window, {1800, 1800});
    EXPECT_TRUE(Status(window).startsWith(QStringLiteral("Drag to move")));
}

TEST_F(PageHints, ComeBackOnceTheMessageHasGone) {
    frmMain &window = NewWindow();
    AddNode(window, 1500, 1500);
    Point(window, {6000, 6000});
    window.DoStatus(QStringLiteral("Loading"));
    window.DoStatus(QString());
    Point(window, {6300, 6000});
    EXPECT_EQ(Status(window), kPage);
}

TEST_F(PageHints, WhatALinkThatWasDroppedNeedsStaysOverThePage) {
    frmMain &window = NewWindow();
    const diagram::Node &node = AddNode(window, 1500, 1500);
    const QPointF tooNear = node.Bounds().bottomRight() + QPointF(300, 300); // for another node
    DragFromBeside(window, node, tooNear);
    Point(window, tooNear + QPointF(30, 30));
    EXPECT_EQ(Status(window), QStringLiteral("A Link starts and ends at a Node."));
}

TEST_F(PageHints, EachHintHasWords) {
    for (int hint = int(diagram::Hint::LinkNeedsNode); hint <= int(diagram::Hint::KeysWrite); ++hint)
        EXPECT_FALSE(HintText(diagram::Hint(hint)).isEmpty()) << hint;
    EXPECT_TRUE(HintText(diagram::Hint::Nothing).isEmpty());
}

TEST_F(PageHints, AnEmptyPageSaysHowToBeginInTheProductsTerms) {
    frmMain &window = NewWindow();
    ProcessEvents();
    EXPECT_EQ(window.CurrentView().accessibleDescription(), EmptyPageText());
    EXPECT_TRUE(EmptyPageText().contains(QStringLiteral("draw a Node")));
    Drag(window, {1500, 1500}, {3000, 3000});
    EXPECT_NE(window.CurrentView().accessibleDescription(), EmptyPageText());
}

} // namespace mainwindow::testing
