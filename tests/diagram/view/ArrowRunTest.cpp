// Arrow keys pressed in a row are one step of undo.
#include "tests/diagram/view/ViewFixture.h"

#include "diagram/edit/History.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "diagram/view/KeyRun.h"

#include <QApplication>
#include <QKeyEvent>

namespace diagram::testing {

class ArrowRun : public ViewTest {
protected:
    ArrowRun() : a(AddNode("a", 200, 200)), b(AddNode("b", 400, 200)), link(AddLink(a, b)) {
        a.SetSelected(true);
        Settle();
    }

    void KeyAt(quint64 time, int key, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        press.setTimestamp(time);
        QApplication::sendEvent(view.get(), &press);
        Settle();
    }
    void Keys(std::initializer_list<int> keys, Qt::KeyboardModifiers modifiers = {}) {
        for (const int key : keys) Key(key, modifiers);
    }

    Node &a, &b;
    Link &link;
    const QRectF start{3000, 3000, 1500, 900};
};

TEST_F(ArrowRun, KeysInARow_AreOneStep) {
    const std::vector<Point> route = link.Route();
    Keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Down});
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(a.Bounds(), start.translated(30, 15 + 150));
    EXPECT_EQ(events.Count("AfterMove"), 4);
    const std::vector<Point> moved = link.Route();
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(a.Bounds(), start);
    EXPECT_EQ(link.Route(), route);
    surface.Redo();
    EXPECT_EQ(a.Bounds(), start.translated(30, 165));
    EXPECT_EQ(link.Route(), moved);
}

TEST_F(ArrowRun, WhatAHandlerChanges_BelongsToTheStep) {
    events.also = [&](const char *name) {
        if (qstrcmp(name, "AfterMove") != 0) return;
        const ActionGroup group(surface);
        b.SetText(b.Text() + u'x');
    };
    Keys({Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(b.Text(), QStringLiteral("xx"));
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(b.Text(), QString());
}

TEST_F(ArrowRun, ThereAndBack_LeavesNoStepAndTheStepBeforeAlone) {
    Drag(Body(a), Body(a) + QPoint(33, 47), Qt::AltModifier);
    const Revision before = surface.Actions().Revision();
    const QRectF dragged = a.Bounds();
    Keys({Qt::Key_Right, Qt::Key_Left});
    EXPECT_EQ(surface.Actions().Revision(), before);
    Key(Qt::Key_Down);
    EXPECT_EQ(UndoSteps(), 2);
    surface.Undo();
    EXPECT_EQ(a.Bounds(), dragged);
}

TEST_F(ArrowRun, Pause_EndsIt) {
    KeyAt(10000, Qt::Key_Right);
    KeyAt(10000 + kRunPause - 1, Qt::Key_Right);
    EXPECT_EQ(UndoSteps(), 1);
    KeyAt(10000 + 3 * kRunPause, Qt::Key_Right);
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(ArrowRun, WhateverComesInBetween_EndsIt) {
    const std::pair<const char *, std::function<void()>> others[] = {
        {"another key", [&] { Key(Qt::Key_F9); }},
        {"a click", [&] { Click(Body(a)); }},
        {"the wheel", [&] { Wheel(QPoint(10, 10), -120); }},
        {"another selection and back",
         [&] {
             Key(Qt::Key_Tab);
             Key(Qt::Key_Backtab, Qt::ShiftModifier);
         }},
        {"a command's text", [&] { view->KeepText(); }},
        {"the focus elsewhere",
         [&] {
             view->clearFocus();
             view->setFocus();
         }},
        {"undo and redo",
         [&] {
             surface.Undo();
             surface.Redo();
         }},
        {"another change",
         [&] {
             const ActionGroup group(surface);
             b.SetText(b.Text() + u'x');
         }},
        {"a change that is no step", [&] { b.SetTag(b.Tag() + u'x'); }}};
    for (const auto &[name, other] : others) {
        SCOPED_TRACE(name);
        Key(Qt::Key_Right);
        other();
        ASSERT_TRUE(a.Selected());
        const float left = a.Left();
        Key(Qt::Key_Right);
        Key(Qt::Key_Right);
        EXPECT_EQ(a.Left(), left + 30);
        surface.Undo();
        EXPECT_EQ(a.Left(), left);
        Settle();
    }
}

TEST_F(ArrowRun, AnotherSelection_EndsIt) {
    Key(Qt::Key_Right);
    b.SetSelected(true);
    Key(Qt::Key_Right);
    EXPECT_EQ(UndoSteps(), 2);
    surface.Undo();
    EXPECT_EQ(b.Left(), 6000);
    EXPECT_EQ(a.Left(), 3015);
}

TEST_F(ArrowRun, ResizingInARow_IsAStepOfItsOwn) {
    Keys({Qt::Key_Right, Qt::Key_Right});
    Keys({Qt::Key_Right, Qt::Key_Down, Qt::Key_Right}, Qt::AltModifier);
    EXPECT_EQ(a.Bounds(), QRectF(3030, 3000, 1530, 915));
    EXPECT_EQ(UndoSteps(), 2);
    surface.Undo();
    EXPECT_EQ(a.Bounds(), start.translated(30, 0));
}

TEST_F(ArrowRun, KeysThatWereUndone_AreNoPartOfIt) {
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    surface.Undo();
    EXPECT_TRUE(surface.CanRedo());
    Key(Qt::Key_Down);
    EXPECT_EQ(a.Bounds(), start.translated(0, 15));
    EXPECT_FALSE(surface.CanRedo());
    EXPECT_EQ(UndoSteps(), 1);
}

} // namespace diagram::testing
