// The keys of the surface in a window, whose menus have keys too.
#include "tests/mainwindow/WindowTest.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"

#include <QApplication>
#include <QTest>

namespace mainwindow::testing {

class Keyboard : public WindowTest {
protected:
    Keyboard() : window(NewWindow()), surface(window.CurrentSurface()) { window.CurrentView().setFocus(); }
    // Keys go to whatever has the focus, as those of a keyboard do.
    void Type(const char *text) {
        for (const char *each = text; *each; ++each) {
            QTest::keyClick(QApplication::focusWidget(), *each);
            ProcessEvents();
        }
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        ProcessEvents();
    }
    QString Selected() const {
        return surface.SelectedNode() ? surface.SelectedNode()->Text() : QStringLiteral("none");
    }
    frmMain &window;
    diagram::Surface &surface;
};

TEST_F(Keyboard, AMapIsDrawnWithoutTheMouse) {
    Key(Qt::Key_Insert);
    Type("Market");
    Key(Qt::Key_Return, Qt::ControlModifier);
    Key(Qt::Key_Insert);
    Type("Product");
    Key(Qt::Key_Return, Qt::ControlModifier);
    Key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(Selected(), QStringLiteral("Market"));
    Key(Qt::Key_Down, Qt::ControlModifier);
    Key(Qt::Key_Insert);
    Key(Qt::Key_F2);
    Type("Price");
    Key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(surface.Nodes().Count(), 3);
    ASSERT_EQ(surface.Links().size(), 2U);
    for (const diagram::Node &node : surface.Nodes())
        EXPECT_EQ(document::GetTag(node, document::tags::kLevel), window.clsSettings().Levels().Item(2).Key);
    Key(Qt::Key_Up, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Selected(), QStringLiteral("Market"));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Selected(), QStringLiteral("Product"));
    const float top = surface.SelectedNode()->Top();
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNode()->Top(), top + surface.Screen().GridSize());
    Key(Qt::Key_Up);
    EXPECT_EQ(surface.SelectedNode()->Top(), top + surface.Screen().GridSize() - 15);
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Keyboard, EachOfItsStepsIsUndoneByItself) {
    Key(Qt::Key_Insert);
    Type("Market");
    Key(Qt::Key_Return, Qt::ControlModifier);
    Key(Qt::Key_Right);
    const float left = surface.SelectedNode()->Left();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Item(1).Left(), left - 15);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Item(1).Text(), QString());
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Count(), 0);
}

TEST_F(Keyboard, KeysOfTheMenusGoToTheTextWhileItIsEdited) {
    Key(Qt::Key_Insert);
    Type("Market");
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(surface.Nodes().Count(), 1) << "the node was cut, not its text";
    Key(Qt::Key_V, Qt::ControlModifier);
    Type("s");
    Key(Qt::Key_Z, Qt::ControlModifier);
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(window.CurrentView().IsEditing());
    Key(Qt::Key_Delete);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Selected(), QStringLiteral("Markets"));
    EXPECT_EQ(surface.Nodes().Count(), 1);
}

} // namespace mainwindow::testing
