#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/SliceTabs.h"
#include "tests/mainwindow/WindowTest.h"

#include <QApplication>
#include <QTest>
#include <QTextEdit>
#include <QWheelEvent>

namespace mainwindow::testing {

// Two slices; on the first a text of a node is being typed.
struct Typing : WindowTest {
    frmMain &window = NewWindow();
    SliceTabs &tabs = *window.findChild<SliceTabs *>(QStringLiteral("SSTab_ctl"));
    diagram::Node *node = nullptr;

    Typing() {
        desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Two"));
        Run("mnuEditSlicesInsert");
        node = &AddNode(window, 300, 300, QStringLiteral("old"));
        node->SetSelected(true);
        window.clsSettings().Dirty = false;
        Press(window, QStringLiteral("F2"));
        Type("new text");
    }
    void Run(const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
    static void Type(const char *text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    // The texts of all nodes, tab by tab. Not by `node`, as a rebuild of the slices makes new nodes.
    QStringList Texts() {
        QStringList texts;
        for (const int slot : window.AddFlow1().Indices())
            for (const diagram::Node &each : window.AddFlow1()[slot].Nodes()) texts << each.Text();
        return texts;
    }
    bool IsTyping() const { return window.findChild<QTextEdit *>() && Editor()->isVisible(); }
    QTextEdit *Editor() const { return qobject_cast<QTextEdit *>(QApplication::focusWidget()); }
    void ExpectKept() {
        EXPECT_EQ(Texts(), QStringList(QStringLiteral("new text")));
        for (const int slot : window.AddFlow1().Indices())
            EXPECT_FALSE(window.findChild<diagram::SurfaceView *>(QStringLiteral("AddFlow1(%1)").arg(slot))
                             ->IsEditing());
        EXPECT_TRUE(window.clsSettings().Dirty);
    }
};

TEST_F(Typing, IsKeptWhenAnotherTabIsClicked) {
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenTheTabsAreTurnedByTheWheel) {
    const QPoint at = tabs.tabRect(0).center();
    QWheelEvent turn(at, tabs.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QCoreApplication::sendEvent(&tabs, &turn);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenTheSliceIsRenamed) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("One"));
    QTest::mouseDClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenAnotherSliceIsRenamed) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Too"));
    QTest::mouseDClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenTheSliceIsMoved) {
    const QPoint from = tabs.tabRect(0).center(), to = tabs.tabRect(1).center() + QPoint(15, 0);
    QTest::mousePress(&tabs, Qt::LeftButton, {}, from);
    QTest::mouseMove(&tabs, (from + to) / 2);
    QTest::mouseMove(&tabs, to);
    QTest::mouseRelease(&tabs, Qt::LeftButton, {}, to);
    EXPECT_EQ(window.TabStrip().TabCaption(0), QStringLiteral("Two"));
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenAnotherSliceIsDeletedByItsMenu) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, tabs.tabRect(1).center(),
                            tabs.mapToGlobal(tabs.tabRect(1).center()));
    QCoreApplication::sendEvent(&tabs, &event);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
    desktop.ExpectMessage(QStringLiteral("Are you sure you want to delete 'Two'?"), support::Answer::Yes);
    Run("mnuEditSlicesDelete");
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenTheWindowIsNotClosedAfterAll) {
    desktop.ExpectMessage(QStringLiteral("Save Changes?"), support::Answer::Cancel);
    window.close();
    ExpectKept();
}

TEST_F(Typing, IsKeptWhenAnotherMapIsOpenedBesideIt) {
    desktop.ExpectOpenFile(SavedMap(QStringLiteral("b.map"), 1), 1);
    Run("mnuFileOpen");
    EXPECT_EQ(frmMain::Forms().size(), 2u);
    ExpectKept();
}

TEST_F(Typing, IsSavedAndGoesOnWhereItWas) {
    const QString path = MapFile(QStringLiteral("a.map"));
    window.clsSettings().SetDatabase(path);
    QTest::keyClick(Editor(), Qt::Key_Left, Qt::ControlModifier);
    QTest::keyClick(Editor(), Qt::Key_Left, Qt::ShiftModifier);
    const int anchor = Editor()->textCursor().anchor(), position = Editor()->textCursor().position();
    QTest::keySequence(Editor(), QKeySequence(QStringLiteral("Ctrl+S")));
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_EQ(node->Text(), QStringLiteral("new text"));
    ASSERT_TRUE(Editor()) << "typing goes on";
    EXPECT_EQ(Editor()->textCursor().anchor(), anchor);
    EXPECT_EQ(Editor()->textCursor().position(), position);
    Type("-");
    EXPECT_EQ(Editor()->toPlainText(), QStringLiteral("new-text"));
    QTest::keySequence(Editor(), QKeySequence(QStringLiteral("Ctrl+S")));
    EXPECT_FALSE(window.clsSettings().Dirty);
    QTest::keyClick(Editor(), Qt::Key_Escape);
    EXPECT_EQ(node->Text(), QStringLiteral("new-text")) << "what is saved is no longer given up";
    frmMain &second = NewWindow();
    window.clsSettings().SetDatabase(QString());
    second.DoOpen(path, false);
    EXPECT_EQ(second.AddFlow1()[0].Nodes().Item(1).Text(), QStringLiteral("new-text"));
}

TEST_F(Typing, GoesOnAfterSaveAsToo) {
    desktop.ExpectSaveFile(MapFile(QStringLiteral("b.map")), 1);
    QTest::keySequence(Editor(), QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    ASSERT_TRUE(Editor());
    Type("!");
    QTest::keyClick(Editor(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(node->Text(), QStringLiteral("new text!"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Typing, EachSaveInTheMiddleIsAStepOfUndo) {
    window.clsSettings().SetDatabase(MapFile(QStringLiteral("a.map")));
    Run("mnuFileSave");
    Type("!");
    Run("mnuEditUndo");
    EXPECT_EQ(node->Text(), QStringLiteral("new text"));
    Run("mnuEditUndo");
    EXPECT_EQ(node->Text(), QStringLiteral("old"));
}

} // namespace mainwindow::testing
