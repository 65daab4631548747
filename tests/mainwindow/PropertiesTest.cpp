#include "diagram/view/SurfaceView.h"
#include "dialogs/frmNodeDialog.h"
#include "dialogs/PropertyForms.h"
#include "mainwindow/BusyRetry.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/menus/CommandSearch.h"
#include "support/Forms.h"
#include "support/OtherDoor.h"
#include "tests/mainwindow/WindowTest.h"

#include <QApplication>
#include <QTest>

namespace mainwindow::testing {

using dialogs::LinkDialogArgument;
using dialogs::NodeDialogArgument;
using document::pointer::kNormal;

namespace {
const QString kNodeForm = QLatin1String(NodeDialogArgument::kForm);
const QString kLinkForm = QLatin1String(LinkDialogArgument::kForm);
constexpr QPointF kOnFirst(400, 400), kOnSecond(6400, 400), kOnLink(4000, 750), kEmpty(4000, 6000);
} // namespace

// Two linked nodes.
class Properties : public WindowTest {
protected:
    frmMain &Open() {
        frmMain &shown = NewWindow();
        first = &AddNode(shown, 300, 300, QStringLiteral("first"));
        second = &AddNode(shown, 6000, 300, QStringLiteral("second"));
        link = &first->Links().Add(*second);
        return shown;
    }
    // The form will be shown; `look` gets its argument, and the form is cancelled.
    template <typename Argument>
    void ExpectForm(std::function<void(Argument &)> look) {
        desktop.ExpectForm<Argument>([look](Argument &argument) {
            look(argument);
            return false;
        });
    }
    diagram::Node *first = nullptr;
    diagram::Node *second = nullptr;
    diagram::Link *link = nullptr;
};

TEST(Collections, HoldAnObjectByIdentity) {
    diagram::Surface surface;
    diagram::Node &a = surface.Nodes().Add(0, 0, 1, 1), &b = surface.Nodes().Add(0, 0, 1, 1);
    diagram::Link &there = a.Links().Add(b), &back = a.Links().Add(b);
    EXPECT_TRUE(NodeIsInCollection(b, {&a, &b}));
    EXPECT_FALSE(NodeIsInCollection(b, {&a}));
    EXPECT_FALSE(NodeIsInCollection(b, {}));
    EXPECT_TRUE(LinkIsInCollection(back, {&there, &back}));
    EXPECT_FALSE(LinkIsInCollection(back, {&there}));
}

TEST_F(Properties, ARightClickOnANodeSelectsItAndShowsItsForm) {
    frmMain &window = Open();
    second->SetSelected(true);
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) {
        EXPECT_EQ(&argument.oNode, first);
        EXPECT_EQ(&argument.oFlow, &window.CurrentSurface());
        EXPECT_EQ(&argument.window, &window);
        EXPECT_TRUE(argument.editsSelection);
        EXPECT_EQ(window.MousePointer(), kNormal);
    });
    RightClick(window, kOnFirst);
    EXPECT_EQ(window.CurrentSurface().SelectedNodes(), std::vector{first});
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Properties, ALargerSelectionStaysAndIsEditedWhenTheNodeBelongsToIt) {
    frmMain &window = Open();
    diagram::Node &third = AddNode(window, 300, 3000);
    first->SetSelected(true);
    second->SetSelected(true);
    ExpectForm<NodeDialogArgument>(
        [](NodeDialogArgument &argument) { EXPECT_TRUE(argument.editsSelection); });
    RightClick(window, kOnSecond);
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) {
        EXPECT_EQ(&argument.oNode, &third);
        EXPECT_FALSE(argument.editsSelection);
    });
    RightClick(window, {400, 3100});
    EXPECT_EQ(window.CurrentSurface().SelectedNodes(), (std::vector{first, second}));
}

TEST_F(Properties, ARightClickOnALinkSelectsItAndHandsTheSelectedLinksOver) {
    frmMain &window = Open();
    first->SetSelected(true);
    diagram::Link &other = second->Links().Add(AddNode(window, 6000, 6000));
    other.SetSelected(true);
    ExpectForm<LinkDialogArgument>([&](LinkDialogArgument &argument) {
        EXPECT_EQ(&argument.oLink, link);
        EXPECT_EQ(&argument.oFlow, &window.CurrentSurface());
        EXPECT_EQ(argument.oLinks, std::vector{link});
        EXPECT_EQ(window.MousePointer(), kNormal);
    });
    RightClick(window, kOnLink);
    EXPECT_EQ(window.CurrentSurface().SelectedLinks(), std::vector{link});
    EXPECT_TRUE(first->Selected());
}

TEST_F(Properties, TheMenuShowsThoseOfTheSelectedNodeElseOfTheSelectedLink) {
    frmMain &window = Open();
    link->SetSelected(true);
    ExpectForm<LinkDialogArgument>([&](LinkDialogArgument &argument) { EXPECT_EQ(&argument.oLink, link); });
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditProperties"));
    second->SetSelected(true);
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) { EXPECT_EQ(&argument.oNode, second); });
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditProperties"));
}

TEST_F(Properties, OfALinkOutsideALargerSelectionThatIsNotHandedOver) {
    frmMain &window = Open();
    diagram::Node &third = AddNode(window, 6000, 6000);
    diagram::Link &down = second->Links().Add(third), &up = third.Links().Add(*first);
    down.SetSelected(true);
    up.SetSelected(true);
    ExpectForm<LinkDialogArgument>(
        [](LinkDialogArgument &argument) { EXPECT_TRUE(argument.oLinks.empty()); });
    RightClick(window, kOnLink);
    EXPECT_EQ(window.CurrentSurface().SelectedLinks(), (std::vector{&down, &up}));
}

TEST_F(Properties, ARightClickOnEmptySurfaceDoesNothing) {
    frmMain &window = Open();
    first->SetSelected(true);
    RightClick(window, kEmpty);
    EXPECT_TRUE(desktop.dialogHost.shown.isEmpty());
    EXPECT_TRUE(first->Selected());
}

TEST_F(Properties, ARightClickFindsWhatIsScrolledAndZoomed) {
    frmMain &window = Open();
    diagram::Node &far = AddNode(window, 60000, 45000);
    window.CurrentSurface().SetxZoom(150);
    window.CurrentSurface().SetyZoom(150);
    ProcessEvents();
    window.CurrentView().EnsureVisible(far.Bounds());
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) { EXPECT_EQ(&argument.oNode, &far); });
    RightClick(window, {60100, 45100});
}

TEST_F(Properties, OtherButtonsShowNone) {
    frmMain &window = Open();
    ProcessEvents();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton})
        QTest::mouseClick(window.CurrentView().viewport(), button, {}, PixelOf(window, kOnFirst));
    EXPECT_TRUE(desktop.dialogHost.shown.isEmpty());
}

TEST_F(Properties, TheFormOfANodeSeesTheBareTextAndTheDisplayComesBack) {
    frmMain &window = Open();
    first->SetEvent(QStringLiteral("event"));
    window.ClickFormatButton(QStringLiteral("DISPLAY"));
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) {
        EXPECT_EQ(argument.oNode.Text(), QStringLiteral("first"));
        EXPECT_FALSE(window.DisplayPressed());
    });
    RightClick(window, kOnFirst);
    EXPECT_TRUE(window.DisplayPressed());
    EXPECT_EQ(first->ShownText(), QStringLiteral("first\r\nevent"));
}

TEST_F(Properties, TheMenuKeyAndShiftF10DoForTheSelectionWhatTheRightClickDoes) {
    frmMain &window = Open();
    link->SetSelected(true);
    ExpectForm<LinkDialogArgument>([&](LinkDialogArgument &argument) { EXPECT_EQ(&argument.oLink, link); });
    Press(window, QStringLiteral("Menu"));
    second->SetSelected(true);
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) { EXPECT_EQ(&argument.oNode, second); });
    Press(window, QStringLiteral("Shift+F10"));
    window.CurrentSurface().UnselectAll();
    Press(window, QStringLiteral("Menu"));
    EXPECT_EQ(desktop.dialogHost.shown, QStringList({kLinkForm, kNodeForm}));
}

TEST_F(Properties, ItsKeyAndTheSearchShowThoseOfTheSelection) {
    frmMain &window = Open();
    second->SetSelected(true);
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) { EXPECT_EQ(&argument.oNode, second); });
    Press(window, QStringLiteral("F4"));
    ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) { EXPECT_EQ(&argument.oNode, second); });
    Press(window, QStringLiteral("Ctrl+Shift+P"));
    QTest::keyClicks(&window.Search(), QStringLiteral("properties"));
    QWidget *popup = QApplication::activePopupWidget();
    QTest::keyClick(popup ? popup : &window.Search(), Qt::Key_Return);
    ProcessEvents();
    EXPECT_EQ(desktop.dialogHost.shown, QStringList({kNodeForm, kNodeForm}));
}

// Both texts are shown, which has to be switched off for the form and on again after it.
TEST_F(Properties, WhatTheDialogAppliesIsOneStepOfTheWindow) {
    frmMain &window = Open();
    first->SetKey(QStringLiteral("key"));
    window.ClickFormatButton(QStringLiteral("DISPLAY"));
    window.clsSettings().Dirty = false;
    desktop.ExpectForm<NodeDialogArgument>([&](NodeDialogArgument &argument) {
        dialogs::frmNodeDialog form(argument, &window);
        auto *shape = form.findChild<QComboBox *>(QStringLiteral("cboShape"));
        shape->setCurrentIndex(shape->findData(50));
        form.OKButton_Click();
        return form.result() == QDialog::Accepted;
    });
    RightClick(window, kOnFirst);
    EXPECT_EQ(first->Shape(), 50);
    EXPECT_EQ(first->Text(), QStringLiteral("first"));
    EXPECT_TRUE(window.DisplayPressed());
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(first->Shape(), 1);
}

TEST_F(Properties, ABusySurfaceIsTriedAgain) {
    frmMain &window = Open();
    for (int i = 0; i < kBusyTries - 1; ++i)
        desktop.ExpectForm<NodeDialogArgument>([](NodeDialogArgument &) -> bool {
            throw support::Error(kErrBusy, QStringLiteral("Surface"), QStringLiteral("Busy"));
        });
    desktop.ExpectForm<NodeDialogArgument>();
    RightClick(window, kOnFirst);
    EXPECT_EQ(desktop.dialogHost.shown.size(), kBusyTries);
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Properties, ASurfaceThatStaysBusyIsToldAtTheTenthTry) {
    frmMain &window = Open();
    for (int i = 0; i < kBusyTries; ++i)
        desktop.ExpectForm<NodeDialogArgument>([](NodeDialogArgument &) -> bool {
            throw support::Error(kErrBusy, QStringLiteral("Surface"), QStringLiteral("Busy"));
        });
    desktop.ExpectMessage(QStringLiteral("Having Problems..."));
    RightClick(window, kOnFirst);
    EXPECT_EQ(desktop.Messages().size(), 1u);
}

TEST_F(Properties, AnyOtherErrorIsReported) {
    frmMain &window = Open();
    desktop.ExpectForm<NodeDialogArgument>([](NodeDialogArgument &) -> bool {
        throw support::Error(9, QStringLiteral("Form"), QStringLiteral("Subscript out of range"));
    });
    desktop.ExpectMessage(QStringLiteral("Subscript out of range\r\r(Error #9)"));
    RightClick(window, kOnFirst);
    EXPECT_EQ(desktop.Messages().front().title, QStringLiteral("Error in frmMain: Sub AddFlow1_MouseDown"));
}

TEST_F(Properties, WithoutAFormTheStatusBarSaysSoAndNoBoxComes) {
    support::FormTable none;
    support::Desktop without = support::WithDoor(desktop.Get(), none);
    auto *window = new frmMain(without);
    window->ShowWindow();
    diagram::Node &node = AddNode(*window, 300, 300);
    node.Links().Add(AddNode(*window, 6000, 300));
    RightClick(*window, kOnFirst);
    EXPECT_EQ(Status(*window), QStringLiteral("The dialog for Node properties is not there yet."));
    EXPECT_TRUE(node.Selected());
    RightClick(*window, kOnLink);
    EXPECT_EQ(Status(*window), QStringLiteral("The dialog for Link properties is not there yet."));
    EXPECT_EQ(window->MousePointer(), kNormal);
}

} // namespace mainwindow::testing
