// The look bar in its window: its states, its keys, its place, and its commands in the menu and the search.
#include "tests/mainwindow/LookBarTest.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/menus/CommandSearch.h"

#include <QAction>
#include <QMenuBar>

namespace mainwindow::testing {

TEST_F(LookBars, ButtonsSayWhatToSelectFirst) {
    Select({});
    for (const LookRow &row : LookRows()) EXPECT_FALSE(Button(row.key).isEnabled()) << row.key;
    EXPECT_EQ(Button("lookFill").toolTip(), QStringLiteral("Fill: select a Node first"));
    EXPECT_EQ(Button("lookLineColour").toolTip(),
              QStringLiteral("Line colour: select a Node or a Link first"));
    EXPECT_EQ(Button("lookRouting").toolTip(), QStringLiteral("Routing: select a Link first"));
}

TEST_F(LookBars, ButtonsAreEnabledByWhatFits) {
    Select({&a});
    for (const LookRow &row : LookRows()) EXPECT_EQ(Button(row.key).isEnabled(), row.ofNode != nullptr);
    Select({}, {&link});
    for (const LookRow &row : LookRows()) EXPECT_EQ(Button(row.key).isEnabled(), row.ofLink != nullptr);
    EXPECT_EQ(Button("lookFill").toolTip(), QStringLiteral("Fill: select a Node first"));
}

TEST_F(LookBars, MixedStatesLookOtherwiseThanAnyValue) {
    a.SetFillColor(sky);
    b.SetFillColor(0x123456);
    Select({&a});
    const QImage one = Button("lookFill").grab().toImage();
    Select({&b});
    const QImage other = Button("lookFill").grab().toImage();
    Select({&a, &b});
    const QImage mixed = Button("lookFill").grab().toImage();
    EXPECT_EQ(Button("lookFill").toolTip(), QStringLiteral("Fill: differs"));
    EXPECT_NE(one, other);
    EXPECT_NE(mixed, one);
    EXPECT_NE(mixed, other);
}

TEST_F(LookBars, FollowWhatIsDoneElsewhere) {
    Select({&a});
    a.SetShadow(2);
    ProcessEvents();
    EXPECT_EQ(window.Look().State(LookOf::Shadow).value, 2);
    window.CurrentSurface().Nodes().Clear();
    ProcessEvents();
    EXPECT_FALSE(Button("lookShadow").isEnabled());
}

TEST_F(LookBars, FollowTheSlice) {
    frmMain &other = NewWindow();
    other.DoOpen(SavedMap(QStringLiteral("two.map"), 1, 2), false);
    other.CurrentSurface().Nodes().Item(1).SetSelected(true);
    ProcessEvents();
    EXPECT_TRUE(other.Look().State(LookOf::Fill).fits);
    other.TabStrip().SetTheTab(1);
    ProcessEvents();
    EXPECT_FALSE(other.Look().State(LookOf::Fill).fits);
}

TEST_F(LookBars, EachWindowShowsItsOwnSelection) {
    frmMain &other = NewWindow();
    Select({&a});
    EXPECT_TRUE(Button("lookFill").isEnabled());
    EXPECT_FALSE(other.findChild<LookButton *>(QStringLiteral("lookFill"))->isEnabled());
}

TEST_F(LookBars, FormatButtonsShowTheSelectionAndKeepWhatTheyDo) {
    a.SetFont(diagram::Font(QStringLiteral("Arial"), 10, true));
    for (diagram::Node *node : {&a, &b}) node->SetAlignment(1);
    Select({&a});
    EXPECT_EQ(Format("BOLD").State(), Shared::Everywhere);
    EXPECT_TRUE(Format("BOLD").isChecked());
    EXPECT_EQ(Format("LEFT").State(), Shared::Everywhere);
    EXPECT_EQ(Format("ITALIC").State(), Shared::Nowhere);
    Select({&a, &b});
    EXPECT_EQ(Format("BOLD").State(), Shared::Partly);
    EXPECT_FALSE(Format("BOLD").isChecked());
    EXPECT_EQ(Format("BOLD").accessibleDescription(), QStringLiteral("in a part of the selection"));
    QTest::mouseClick(&Format("BOLD"), Qt::LeftButton);
    ProcessEvents();
    EXPECT_FALSE(a.Font().Bold());
    EXPECT_TRUE(b.Font().Bold()) << "each flips by itself";
    EXPECT_EQ(Format("BOLD").State(), Shared::Partly);
    QTest::mouseClick(&Format("RIGHT"), Qt::LeftButton);
    ProcessEvents();
    EXPECT_EQ(Format("RIGHT").State(), Shared::Everywhere);
    EXPECT_EQ(Format("LEFT").State(), Shared::Nowhere);
    Select({});
    EXPECT_EQ(Format("RIGHT").State(), Shared::Nowhere);
    EXPECT_FALSE(Format("RIGHT").isEnabled());
}

TEST_F(LookBars, AFormatButtonStaysPressedWhenItIsEnabledAnew) {
    a.SetFont(diagram::Font(QStringLiteral("Arial"), 10, true));
    Select({&a});
    Select({});
    Select({&a});
    EXPECT_TRUE(Format("BOLD").isChecked());
}

TEST_F(LookBars, CtrlBIAndUWork) {
    Select({&a}, {&link});
    Press(window, QStringLiteral("Ctrl+B"));
    Press(window, QStringLiteral("Ctrl+I"));
    Press(window, QStringLiteral("Ctrl+U"));
    for (const diagram::Font &font : {a.Font(), link.Font()}) {
        EXPECT_TRUE(font.Bold());
        EXPECT_TRUE(font.Italic());
        EXPECT_TRUE(font.Underline());
    }
    Press(window, QStringLiteral("Ctrl+B"));
    EXPECT_FALSE(a.Font().Bold());
    for (int i = 0; i < 4; ++i) Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(LookBars, CtrlBLeavesTheTextThatIsTypedOpen) {
    Select({&a});
    window.CurrentView().BeginEdit();
    QWidget *editor = QApplication::focusWidget();
    QTest::keyClicks(editor, QStringLiteral("new"));
    QTest::keyClick(editor, Qt::Key_B, Qt::ControlModifier);
    ProcessEvents();
    EXPECT_TRUE(a.Font().Bold());
    EXPECT_EQ(QApplication::focusWidget(), editor);
    EXPECT_TRUE(editor->font().bold()) << "it shows its text as it will be";
}

TEST_F(LookBars, AreOnAtFirstSwitchedInViewAndRemembered) {
    const QString entry = QStringLiteral("mnuViewLook");
    EXPECT_TRUE(Bar().isVisible());
    EXPECT_TRUE(window.MenuValue(entry));
    window.menuBar()->findChild<QAction *>(entry)->trigger();
    EXPECT_FALSE(Bar().isVisible());
    frmMain &next = NewWindow();
    EXPECT_FALSE(next.findChild<QToolBar *>(QStringLiteral("tlbLook"))->isVisible());
    EXPECT_FALSE(next.MenuValue(entry));
    window.menuBar()->findChild<QAction *>(entry)->trigger();
    EXPECT_TRUE(Bar().isVisible());
    frmMain &last = NewWindow();
    EXPECT_TRUE(last.MenuValue(entry));
}

TEST_F(LookBars, ItsCommandsWorkWhileItIsHiddenToo) {
    window.Look().SetShown(false);
    Select({&a});
    window.SmartMenuXP1_Click(QStringLiteral("lookFill"));
    QTest::mouseClick(Offered(Sky()), Qt::LeftButton);
    EXPECT_EQ(a.FillColor(), sky);
}

TEST_F(LookBars, MenuEntriesAreEnabledLikeTheButtons) {
    const auto entry = [&](const char *key) {
        return window.menuBar()->findChild<QAction *>(QLatin1String(key))->isEnabled();
    };
    Select({&a});
    EXPECT_TRUE(entry("lookFill"));
    EXPECT_FALSE(entry("lookRouting"));
    EXPECT_FALSE(entry("mnuEditLookPaste")) << "nothing was copied";
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    EXPECT_TRUE(entry("mnuEditLookPaste"));
    Select({});
    EXPECT_FALSE(entry("lookFill"));
    EXPECT_FALSE(entry("mnuEditLookPaste"));
}

TEST_F(LookBars, TheKeyboardGoesAlongItAndBack) {
    window.resize(1600, 700);
    Select({}, {&link});
    Press(window, QStringLiteral("F8"));
    ASSERT_EQ(QApplication::focusWidget(), &Button("lookLineColour")) << "the first that can be used";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_EQ(QApplication::focusWidget(), &Button("lookJumps"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QWidget *popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    QTest::keyClick(popup->focusWidget(), Qt::Key_Escape);
    QTest::keyClick(&Button("lookLineColour"), Qt::Key_Escape);
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(LookBars, EachValueIsALineOfTheSearch) {
    Select({&a});
    Press(window, QStringLiteral("Ctrl+Shift+P"));
    QTest::keyClicks(&window.Search(), QStringLiteral("fill sky"));
    EXPECT_EQ(window.Search().Offered(), QStringList(QStringLiteral("Fill: sky")));
    QWidget *popup = QApplication::activePopupWidget();
    QTest::keyClick(popup ? popup : &window.Search(), Qt::Key_Return);
    ProcessEvents();
    EXPECT_EQ(a.FillColor(), sky);
    for (const LookRow &row : LookRows()) {
        if (!row.ofNode) continue;
        for (const widgets::ChoiceSection &section : window.Look().Choices(row.what))
            for (const widgets::Choice &choice : section.choices)
                EXPECT_FALSE(choice.name.isEmpty()) << row.key;
    }
}

TEST_F(LookBars, StandBehindTheFormatToolbarOrBelowItWhereThereIsNoRoom) {
    const auto *format = window.findChild<Toolbar *>(QStringLiteral("tlbFormat"));
    for (const int width : {900, 1600, 700}) {
        window.resize(width, 600);
        ProcessEvents();
        EXPECT_EQ(Bar().geometry().top() == format->geometry().top(), width == 1600) << width;
        for (const LookRow &row : LookRows()) EXPECT_TRUE(Button(row.key).isVisible()) << row.key << width;
    }
}

TEST_F(LookBars, ANarrowWindowKeepsTheRestInTheOverflow) {
    window.resize(500, 500);
    ProcessEvents();
    auto *extension = Bar().findChild<QToolButton *>(QStringLiteral("qt_toolbar_ext_button"));
    ASSERT_NE(extension, nullptr);
    EXPECT_TRUE(extension->isVisible());
    EXPECT_LE(Bar().geometry().right(), window.width());
}

} // namespace mainwindow::testing
