#include "mainwindow/slices/PutBack.h"

#include "dialogs/PropertyForms.h"
#include "mainwindow/edits/HandlerStep.h"
#include "tests/mainwindow/WindowTest.h"

#include <QTest>
#include <QToolButton>

namespace mainwindow::testing {

using dialogs::LinkDialogArgument;

// Two linked nodes, and a node that was moved as a step of undo.
class PutBackTest : public WindowTest {
protected:
    PutBackTest() {
        const HandlerStep step(window.CurrentSurface());
        moved.SetLeft(3000);
    }
    QToolButton &Button() { return *window.findChild<QToolButton *>(QStringLiteral("PUTBACK")); }
    bool IsOffered() {
        ProcessEvents();
        EXPECT_EQ(!Button().isHidden(), window.FormerLinks().IsOffered());
        return !Button().isHidden();
    }
    // Gives the link that text through its form, by OK, or by Apply and Cancel.
    void GiveText(const QString &text, bool ok = true) {
        desktop.ExpectForm<LinkDialogArgument>([text, ok](LinkDialogArgument &argument) {
            argument.former = dialogs::RememberLinks({&argument.oLink});
            diagram::LinkData values = argument.oLink.Data();
            values.text = text;
            dialogs::ApplyToLinks(argument.window, argument.oLink, argument.oLinks, values);
            return ok;
        });
        window.ShowLinkProperties(link);
    }
    void Undo() { window.SmartMenuXP1_Click(QStringLiteral("mnuEditUndo")); }

    frmMain &window = NewWindow();
    diagram::Node &moved = AddNode(window, 300, 300);
    diagram::Link &link = moved.Links().Add(AddNode(window, 6000, 300));
};

TEST_F(PutBackTest, IsOfferedAfterTheFormAndGivesTheFormerText) {
    link.SetText(QStringLiteral("before"));
    GiveText(QStringLiteral("after"));
    EXPECT_EQ(Status(window), QStringLiteral("The Link was changed. This is no step of undo."));
    ASSERT_TRUE(IsOffered());
    EXPECT_TRUE(window.clsSettings().Dirty);
    QTest::mouseClick(&Button(), Qt::LeftButton);
    EXPECT_EQ(link.Text(), QStringLiteral("before"));
    EXPECT_EQ(Status(window), QStringLiteral("The Link is as it was before."));
    EXPECT_FALSE(IsOffered());
}

TEST_F(PutBackTest, IsOfferedAfterApplyAndCancelToo) {
    GiveText(QStringLiteral("after"), false);
    EXPECT_TRUE(IsOffered());
}

TEST_F(PutBackTest, IsNotOfferedWhenNothingDiffersOrTheFormWasCancelled) {
    GiveText(link.Text());
    EXPECT_FALSE(IsOffered());
    desktop.ExpectForm<LinkDialogArgument>();
    window.ShowLinkProperties(link);
    EXPECT_FALSE(IsOffered());
}

TEST_F(PutBackTest, TheFirstUndoAfterwardsOnlySaysWhatItWouldDo) {
    GiveText(QStringLiteral("after"));
    Undo();
    EXPECT_EQ(moved.Left(), 3000);
    EXPECT_TRUE(Status(window).startsWith(QStringLiteral("Undo would take back")));
    EXPECT_TRUE(IsOffered());
    Undo();
    EXPECT_EQ(moved.Left(), 300);
    EXPECT_EQ(link.Text(), QStringLiteral("after"));
    EXPECT_FALSE(IsOffered());
}

TEST_F(PutBackTest, SoDoesTheKey) {
    GiveText(QStringLiteral("after"));
    ProcessEvents();
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(moved.Left(), 3000);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(moved.Left(), 300);
}

TEST_F(PutBackTest, UndoSaysSoAlsoWhereThereIsNothingToUndo) {
    Undo();
    ASSERT_FALSE(window.CurrentSurface().CanUndo());
    GiveText(QStringLiteral("after"));
    ProcessEvents();
    for (int time = 0; time < 2; ++time) {
        window.DoStatus(QString());
        Press(window, QStringLiteral("Ctrl+Z"));
        EXPECT_EQ(Status(window), QStringLiteral("The change of the Link is no step of undo."));
    }
    EXPECT_EQ(link.Text(), QStringLiteral("after"));
}

TEST_F(PutBackTest, AKeyPutsBackToo) {
    GiveText(QStringLiteral("after"));
    ProcessEvents();
    Press(window, QStringLiteral("Alt+B"));
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return link.Text().isEmpty(); })); // the button shows itself pressed first
}

TEST_F(PutBackTest, AfterPuttingBackUndoIsAsEver) {
    GiveText(QStringLiteral("after"));
    Button().click();
    Undo();
    EXPECT_EQ(moved.Left(), 300);
}

TEST_F(PutBackTest, EndsWithTheNextChangeOfTheMapAndUndoIsAsEver) {
    GiveText(QStringLiteral("after"));
    {
        const HandlerStep step(window.CurrentSurface());
        moved.SetTop(900);
    }
    EXPECT_FALSE(IsOffered());
    Undo();
    EXPECT_EQ(moved.Top(), 300);
}

TEST_F(PutBackTest, EndsWithAChangeOfAPool) {
    GiveText(QStringLiteral("after"));
    window.clsSettings().Groups().Create(QStringLiteral("new"), true);
    window.ScheduleUpdate();
    EXPECT_FALSE(IsOffered());
}

TEST_F(PutBackTest, ASelectionDoesNotEndIt) {
    GiveText(QStringLiteral("after"));
    moved.SetSelected(true);
    EXPECT_TRUE(IsOffered());
}

TEST_F(PutBackTest, EndsWithAnotherSlice) {
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("second"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesInsert"));
    window.TabStrip().SetTheTab(0);
    ProcessEvents();
    diagram::Surface &surface = window.CurrentSurface();
    desktop.ExpectForm<LinkDialogArgument>([](LinkDialogArgument &argument) {
        argument.former = dialogs::RememberLinks({&argument.oLink});
        argument.oLink.SetText(QStringLiteral("after"));
        return true;
    });
    window.ShowLinkProperties(*surface.Links().front());
    EXPECT_TRUE(IsOffered());
    window.TabStrip().SetTheTab(1);
    EXPECT_FALSE(IsOffered());
}

TEST_F(PutBackTest, EndsWithAnotherWindow) {
    GiveText(QStringLiteral("after"));
    EXPECT_TRUE(IsOffered());
    NewWindow();
    EXPECT_FALSE(IsOffered());
}

} // namespace mainwindow::testing
