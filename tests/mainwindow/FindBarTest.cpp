#include "mainwindow/find/FindBar.h"
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "tests/document/Slices.h"
#include "tests/mainwindow/WindowTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

namespace mainwindow::testing {

namespace {

// Two slices: "Plan A" and "Plan B" on the first, "plan c" on the second.
struct Finding : WindowTest {
    frmMain &window = NewWindow();
    FindBar &bar = *window.findChild<FindBar *>();
    diagram::Node &a = AddNode(window, 300, 300, QStringLiteral("Plan A"));
    diagram::Node &b = AddNode(window, 300, 3000, QStringLiteral("Plan B"));
    diagram::Node *c = nullptr;

    Finding() {
        c = &document::testing::AddSlice(window).Nodes().Add(300, 300, 1500, 900);
        c->SetText(QStringLiteral("plan c"));
        window.clsSettings().Dirty = false;
    }
    template <typename Widget>
    Widget &Child(const char *name) {
        return *bar.findChild<Widget *>(QLatin1String(name));
    }
    void Seek(const QString &text, const char *keys = "Ctrl+F") {
        Press(window, QLatin1String(keys));
        QTest::keyClicks(&Child<QLineEdit>("txtFind"), text);
        ProcessEvents();
    }
    QString Count() { return Child<QLabel>("lblCount").text(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        ProcessEvents();
    }
};

} // namespace

TEST_F(Finding, TheBarStandsBetweenTheSurfaceAndTheTabs) {
    EXPECT_FALSE(bar.isVisible());
    const int before = window.CurrentView().height();
    Press(window, QStringLiteral("Ctrl+F"));
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(Child<QLineEdit>("txtFind").hasFocus());
    EXPECT_EQ(window.CurrentView().height(), before - bar.height());
    EXPECT_EQ(bar.y(), window.CurrentView().height());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(window.CurrentView().height(), before);
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(Finding, ShowsTheFirstHitAndTheCountWhileOneTypes) {
    Seek(QStringLiteral("plan"));
    EXPECT_EQ(Count(), QStringLiteral("1 of 3"));
    EXPECT_TRUE(a.Selected());
    QTest::keyClicks(&Child<QLineEdit>("txtFind"), QStringLiteral(" b"));
    EXPECT_EQ(Count(), QStringLiteral("1 of 1"));
    EXPECT_TRUE(b.Selected());
    EXPECT_FALSE(a.Selected());
    QTest::keyClicks(&Child<QLineEdit>("txtFind"), QStringLiteral("x"));
    EXPECT_EQ(Count(), QStringLiteral("Nothing found"));
}

TEST_F(Finding, EnterAndF3WalkTheHitsOverAllSlicesAndBeginAgain) {
    Seek(QStringLiteral("plan"));
    Key(Qt::Key_Return);
    EXPECT_TRUE(b.Selected());
    Key(Qt::Key_Return);
    EXPECT_TRUE(c->Selected());
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(Count(), QStringLiteral("3 of 3"));
    EXPECT_TRUE(Child<QLineEdit>("txtFind").hasFocus());
    Press(window, QStringLiteral("F3"));
    EXPECT_TRUE(a.Selected());
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
    Press(window, QStringLiteral("Shift+F3"));
    EXPECT_TRUE(c->Selected());
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Finding, OptionsNarrowTheSearch) {
    Seek(QStringLiteral("plan"));
    Child<QCheckBox>("chkCase").click();
    EXPECT_EQ(Count(), QStringLiteral("1 of 1"));
    EXPECT_TRUE(c->Selected());
}

TEST_F(Finding, AHitOutOfSightIsScrolledTo) {
    diagram::Node &far = AddNode(window, 90000, 90000, QStringLiteral("remote"));
    Seek(QStringLiteral("remote"));
    const QRectF seen(window.CurrentView().viewport()->rect());
    EXPECT_TRUE(seen.contains(window.CurrentView().FromSurface(far.Bounds().center())));
}

TEST_F(Finding, TheTabulatorGoesFromTheSoughtToItsReplacement) {
    Press(window, QStringLiteral("Ctrl+H"));
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Child<QLineEdit>("txtReplace").hasFocus());
    Key(Qt::Key_Escape);
    Press(window, QStringLiteral("Ctrl+F"));
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Child<QToolButton>("cmdPrevious").hasFocus());
}

TEST_F(Finding, ReplacesTheHitShownAndGoesOn) {
    Seek(QStringLiteral("plan"), "Ctrl+H");
    QTest::keyClicks(&Child<QLineEdit>("txtReplace"), QStringLiteral("Goal"));
    Child<QToolButton>("cmdReplace").click();
    EXPECT_EQ(a.Text(), QStringLiteral("Goal A"));
    EXPECT_EQ(b.Text(), QStringLiteral("Plan B"));
    EXPECT_TRUE(b.Selected());
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Finding, ReplacingAllIsOneStepOfUndoOnEachSlice) {
    Seek(QStringLiteral("plan"), "Ctrl+H");
    QTest::keyClicks(&Child<QLineEdit>("txtReplace"), QStringLiteral("Goal"));
    const QString before = Count();
    Child<QToolButton>("cmdReplaceAll").click();
    EXPECT_EQ(a.Text() + b.Text() + c->Text(), QStringLiteral("Goal AGoal BGoal c"));
    EXPECT_EQ(Status(window), QStringLiteral("Replaced: 3"));
    EXPECT_NE(Count(), before) << "the hits are gone";
    window.AddFlow1()[0].Undo();
    EXPECT_EQ(a.Text() + b.Text() + c->Text(), QStringLiteral("Plan APlan BGoal c"));
    window.AddFlow1()[1].Undo();
    EXPECT_EQ(c->Text(), QStringLiteral("plan c"));
}

TEST_F(Finding, SecondTextsAreReplacedWhileTheyAreShown) {
    a.SetEvent(QStringLiteral("plan day"));
    window.ClickFormatButton(QStringLiteral("DISPLAY"));
    Seek(QStringLiteral("plan"), "Ctrl+H");
    QTest::keyClicks(&Child<QLineEdit>("txtReplace"), QStringLiteral("Goal"));
    Child<QToolButton>("cmdReplaceAll").click();
    EXPECT_TRUE(window.DisplayPressed());
    EXPECT_EQ(a.Event(), QStringLiteral("Goal day"));
    EXPECT_EQ(a.ShownText(), QStringLiteral("Goal A\r\nGoal day"));
    EXPECT_EQ(a.Text(), QStringLiteral("Goal A"));
}

} // namespace mainwindow::testing
