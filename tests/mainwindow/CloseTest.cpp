#include "tests/mainwindow/WindowTest.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/window/frmPics.h"
#include "support/Files.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace mainwindow::testing {

using support::Answer;

namespace {
const QString kQuestion = QStringLiteral("Save Changes?");
}

class Close : public WindowTest {
protected:
    // Closes a window with changes and tells whether it is gone.
    bool CloseChanged(frmMain &window) {
        const QPointer<frmMain> alive(&window);
        window.clsSettings().Dirty = true;
        window.close();
        ProcessEvents();
        return alive.isNull();
    }
};

TEST_F(Close, ACleanMapAsksNothing) {
    const QPointer<frmMain> window(&NewWindow());
    window->close();
    ProcessEvents();
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Close, TheQuestionHasThreeButtonsAndAQuestionIcon) {
    desktop.ExpectMessage(kQuestion, Answer::No);
    EXPECT_TRUE(CloseChanged(NewWindow()));
    ASSERT_EQ(desktop.Messages().size(), 1u);
    EXPECT_EQ(desktop.Messages()[0].buttons, support::Buttons::YesNoCancel);
    EXPECT_EQ(desktop.Messages()[0].icon, support::Icon::Question);
}

TEST_F(Close, CancelKeepsTheWindowAndStoresNoPlace) {
    desktop.ExpectMessage(kQuestion, Answer::Cancel);
    EXPECT_FALSE(CloseChanged(NewWindow()));
    EXPECT_EQ(Stored(QStringLiteral("Width")), kAbsent);
}

TEST_F(Close, YesWithACancelledFileDialogKeepsTheWindow) {
    desktop.ExpectMessage(kQuestion, Answer::Yes);
    desktop.ExpectSaveFile(QString());
    EXPECT_FALSE(CloseChanged(NewWindow()));
}

TEST_F(Close, YesSavesAndCloses) {
    const QString path = MapFile(QStringLiteral("plan.map"));
    desktop.ExpectMessage(kQuestion, Answer::Yes);
    desktop.ExpectSaveFile(path);
    EXPECT_TRUE(CloseChanged(NewWindow()));
    EXPECT_TRUE(support::FileExists(path));
}

TEST_F(Close, ASaveThatFailsKeepsTheWindow) {
    frmMain &window = NewWindow();
    window.clsSettings().SetDatabase(MapFile(QStringLiteral("no such folder/plan.map")));
    desktop.ExpectMessage(kQuestion, Answer::Yes);
    desktop.ExpectMessageContaining(QStringLiteral("(Error #"));
    EXPECT_FALSE(CloseChanged(window));
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in frmMain: Sub Form_QueryUnload"));
}

TEST_F(Close, AnUpdateThatIsStillDueFindsNothingToDoOnceTheSlicesAreGone) {
    frmMain &window = NewWindow();
    window.DoOpen(SavedMap(QStringLiteral("plan.map"), 1, 3), false);
    window.TabStrip().SetTheTab(2);
    window.close();
    EXPECT_EQ(window.AddFlow1().Count(), 1);
    EXPECT_NO_THROW(window.UpdateCommands());
}

TEST_F(Close, NoWindowClosesWhileOneLoads) {
    const QPointer<frmMain> window(&NewWindow());
    const QPointer<frmMain> other(&NewWindow());
    for (frmMain *form : {window.data(), other.data()}) QTimer::singleShot(0, form, &QWidget::close);
    window->DoOpen(SavedMap(QStringLiteral("plan.map"), 2, 2), false);
    ProcessEvents();
    ASSERT_FALSE(window.isNull());
    EXPECT_FALSE(other.isNull());
    EXPECT_EQ(window->AddFlow1()[0].Nodes().Count(), 2);
    window->close();
    ProcessEvents();
    EXPECT_TRUE(window.isNull());
}

TEST_F(Close, ASecondCloseBeforeTheWindowIsGoneDoesNoHarm) {
    frmMain &window = NewWindow();
    const frmMain &other = NewWindow();
    for (int i = 0; i < 2; ++i) {
        QCloseEvent event;
        QCoreApplication::sendEvent(&window, &event);
        EXPECT_TRUE(event.isAccepted());
    }
    EXPECT_EQ(frmPics::Shared().Usage(), 1);
    EXPECT_TRUE(other.isVisible());
}

TEST_F(Close, TextThatIsBeingTypedIsKeptAndAskedAbout) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).SetSelected(true);
    ASSERT_TRUE(window.CurrentView().BeginEdit());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("new"));
    desktop.ExpectMessage(kQuestion, Answer::Cancel);
    window.close();
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("new"));
}

TEST_F(Close, EveryWindowUsesTheSharedFormUntilItIsClosed) {
    frmMain &first = NewWindow();
    EXPECT_EQ(frmPics::Shared().Usage(), 1);
    frmMain &second = NewWindow();
    EXPECT_EQ(frmPics::Shared().Usage(), 2);
    second.close();
    EXPECT_EQ(frmPics::Shared().Usage(), 1);
    const QPointer<frmPics> pics(&frmPics::Shared());
    first.close();
    ProcessEvents();
    EXPECT_TRUE(pics.isNull());
}

} // namespace mainwindow::testing
