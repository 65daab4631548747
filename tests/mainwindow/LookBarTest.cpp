// The look bar in its window, with mouse and keys.
#include "mainwindow/LookBar.h"
#include "mainwindow/NewLinkRouting.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/CommandSearch.h"
#include "mainwindow/LookButton.h"
#include "mainwindow/RecentColours.h"
#include "mainwindow/StateButton.h"
#include "mainwindow/Toolbar.h"
#include "settings/GetSet.h"
#include "settings/NewLinks.h"
#include "tests/mainwindow/WindowTest.h"
#include "widgets/ColourPalette.h"
#include "widgets/ShapeGrid.h"
#include "widgets/ShapePopup.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

namespace mainwindow::testing {

namespace {

// Two nodes and the link between them; nothing is selected.
class LookBars : public WindowTest {
protected:
    LookButton &Button(const char *key) { return *window.findChild<LookButton *>(QLatin1String(key)); }
    StateButton &Format(const char *key) {
        auto *bar = window.findChild<Toolbar *>(QStringLiteral("tlbFormat"));
        return *qobject_cast<StateButton *>(bar->widgetForAction(bar->Button(QLatin1String(key))));
    }
    QToolBar &Bar() { return *window.findChild<QToolBar *>(QStringLiteral("tlbLook")); }
    void Select(std::vector<diagram::Node *> nodes, std::vector<diagram::Link *> links = {}) {
        window.CurrentSurface().UnselectAll();
        for (diagram::Node *node : nodes) node->SetSelected(true);
        for (diagram::Link *each : links) each->SetSelected(true);
        ProcessEvents();
    }
    // Presses the button and what its popup offers under that name.
    void Choose(const char *key, const QString &name) {
        QTest::mouseClick(&Button(key), Qt::LeftButton);
        QTest::mouseClick(Offered(name), Qt::LeftButton);
        ProcessEvents();
        Activate();
    }
    // The desktop gives the window its keys back when a popup has gone.
    void Activate() {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    static QToolButton *Offered(const QString &name) {
        const auto *popup = qobject_cast<widgets::ChoicePopup *>(QApplication::activePopupWidget());
        if (popup)
            for (QToolButton *button : popup->Buttons())
                if (button->text() == name) return button;
        ADD_FAILURE() << "no choice " << qPrintable(name);
        return nullptr;
    }
    static QStringList AllOffered() {
        QStringList names;
        const auto *popup = qobject_cast<widgets::ChoicePopup *>(QApplication::activePopupWidget());
        if (popup)
            for (const QToolButton *button : popup->Buttons()) names << button->text();
        return names;
    }
    static void ClosePopup() {
        if (QWidget *popup = QApplication::activePopupWidget()) popup->close();
    }
    static QString Sky() { return QStringLiteral("sky"); }

    frmMain &window = NewWindow();
    diagram::Node &a = AddNode(window, 300, 300);
    diagram::Node &b = AddNode(window, 4000, 300);
    diagram::Link &link = a.Links().Add(b);
    const support::Colour sky = widgets::PaletteColours()[0].colour;
};

} // namespace

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

TEST_F(LookBars, AColourOfThePaletteGoesToTheWholeSelectionInOneStep) {
    Select({&a, &b});
    window.clsSettings().Dirty = false;
    const support::Colour before = a.FillColor();
    Choose("lookFill", Sky());
    EXPECT_EQ(a.FillColor(), sky);
    EXPECT_EQ(b.FillColor(), sky);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(Button("lookFill").toolTip(), QStringLiteral("Fill: sky"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(a.FillColor(), before);
    EXPECT_EQ(b.FillColor(), before);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(LookBars, WhatAllHaveAlreadyIsNoChange) {
    Select({&a});
    a.SetFillColor(sky);
    window.clsSettings().Dirty = false;
    Choose("lookFill", Sky());
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(LookBars, NodesAndLinksTakeLinesAndTextColoursTogether) {
    Select({&a}, {&link});
    Choose("lookLineColour", QStringLiteral("deep red"));
    EXPECT_EQ(a.BorderColor(), link.LineColor());
    EXPECT_EQ(a.BorderColor(), widgets::PaletteColours()[10].colour);
    Choose("lookTextColour", QStringLiteral("deep red"));
    EXPECT_EQ(a.ForeColor(), a.BorderColor());
    EXPECT_EQ(link.ForeColor(), a.BorderColor());
    Choose("lookLineWidth", QStringLiteral("3 px"));
    EXPECT_EQ(a.DrawWidth(), 3);
    EXPECT_EQ(link.DrawWidth(), 3);
    Choose("lookLineStyle", QStringLiteral("Dash"));
    EXPECT_EQ(a.DrawStyle(), 1);
    EXPECT_EQ(link.DrawStyle(), 1);
}

TEST_F(LookBars, TheRoutingOfNewLinksIsChosenForAllWindows) {
    frmMain &other = NewWindow();
    const auto drawn = [](frmMain &of) { return of.CurrentView().TheScene().StyleToDraw(); };
    link.SetStyle(5);
    Select({}, {&link});
    Choose("lookRouting", QStringLiteral("As selected"));
    EXPECT_EQ(settings::LinkRouting(), QStringLiteral("5"));
    EXPECT_EQ(drawn(window), 5);
    EXPECT_EQ(drawn(other), 5);
    Choose("lookRouting", QStringLiteral("Automatic, each the best"));
    EXPECT_EQ(settings::LinkRouting(), QLatin1String(settings::kAutomaticRouting));
    EXPECT_EQ(drawn(window), diagram::kAutomaticStyle);
    EXPECT_EQ(drawn(other), diagram::kAutomaticStyle);
    EXPECT_EQ(link.Style(), 5);
    EXPECT_FALSE(window.CurrentSurface().CanUndo()) << "nothing of the map changes";
    diagram::Link &unlike = b.Links().Add(a);
    Select({}, {&link, &unlike});
    QTest::mouseClick(&Button("lookRouting"), Qt::LeftButton);
    EXPECT_FALSE(AllOffered().contains(QStringLiteral("As selected"))) << "they differ";
    ClosePopup();
}

TEST_F(LookBars, TheKeysBeginAtTheRoutingOfTheSelectionNotAtThatOfNewLinks) {
    SetRoutingOfNewLinks(diagram::kAutomaticStyle);
    link.SetStyle(5);
    Select({}, {&link});
    const auto open = [this] {
        Button("lookRouting").setFocus();
        QTest::keyClick(&Button("lookRouting"), Qt::Key_Space);
        return QApplication::activePopupWidget();
    };
    const auto focused = [](const QWidget *popup) {
        const auto *button = qobject_cast<QToolButton *>(popup->focusWidget());
        return button ? button->text() : QString();
    };
    QWidget *popup = open();
    ASSERT_TRUE(popup);
    EXPECT_EQ(focused(popup), QStringLiteral("H V H"));
    QTest::keyClick(popup, Qt::Key_Right);
    QTest::keyClick(popup, Qt::Key_Return);
    EXPECT_EQ(link.Style(), 6) << "the next in the list";
    EXPECT_EQ(RoutingOfNewLinks(), diagram::kAutomaticStyle);
    diagram::Link &unlike = b.Links().Add(a);
    unlike.SetStyle(2);
    Select({}, {&link, &unlike});
    popup = open();
    ASSERT_TRUE(popup);
    EXPECT_EQ(focused(popup), QStringLiteral("Automatic, each the best")) << "the selection has none";
    ClosePopup();
}

TEST_F(LookBars, LinksTakeRoutingHeadsAndJumps) {
    Select({}, {&link});
    QTest::mouseClick(&Button("lookRouting"), Qt::LeftButton);
    const QStringList routings = AllOffered();
    ClosePopup();
    ASSERT_EQ(routings.size(), 18);
    EXPECT_EQ(routings[15], QStringLiteral("Automatic orthogonal"));
    Choose("lookRouting", routings[5]);
    EXPECT_EQ(link.Style(), 5);
    QTest::mouseClick(&Button("lookArrowStart"), Qt::LeftButton);
    const QStringList heads = AllOffered();
    ClosePopup();
    ASSERT_EQ(heads.size(), 33);
    Choose("lookArrowStart", heads[7]);
    EXPECT_EQ(link.ArrowSource(), 7);
    Choose("lookArrowEnd", heads[0]);
    EXPECT_EQ(link.ArrowDest(), 0);
    Choose("lookJumps", QStringLiteral("Arch Jump"));
    EXPECT_EQ(link.JumpStyle(), 1);
    for (int i = 0; i < 4; ++i) window.CurrentSurface().Undo();
    EXPECT_EQ(link.Style(), 0);
    EXPECT_FALSE(window.CurrentSurface().CanUndo()) << "a step each";
}

TEST_F(LookBars, ShadowsAndShapesGoToNodes) {
    Select({&a, &b}, {&link});
    QTest::mouseClick(&Button("lookShadow"), Qt::LeftButton);
    const QString shadow = AllOffered().value(2);
    ClosePopup();
    Choose("lookShadow", shadow);
    EXPECT_EQ(a.Shadow(), 2);
    QTest::mouseClick(&Button("lookShape"), Qt::LeftButton);
    auto *popup = qobject_cast<widgets::ShapePopup *>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    QTest::keyClicks(&popup->Grid().Words(), QStringLiteral("octogon"));
    QTest::keyClick(&popup->Grid().Words(), Qt::Key_Return);
    ProcessEvents();
    Activate();
    EXPECT_EQ(a.Shape(), 15);
    EXPECT_EQ(b.Shape(), 15);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(a.Shape(), 1);
}

TEST_F(LookBars, ColoursAreThoseOfTheLevelsThePaletteRecentOnesAndOthers) {
    Select({&a});
    NoteRecentColour(0x0A0B0C);
    QTest::mouseClick(&Button("lookFill"), Qt::LeftButton);
    const QStringList offered = AllOffered();
    ClosePopup();
    EXPECT_EQ(offered.mid(0, 3), QStringList({QStringLiteral("1"), QStringLiteral("2"), Sky()}));
    EXPECT_EQ(offered.mid(offered.size() - 3),
              QStringList({QStringLiteral("red 12, green 11, blue 10"), QStringLiteral("No fill"),
                           QStringLiteral("Other...")}));
    EXPECT_EQ(offered.size(), 2 + 12 + 5 + 1 + 2);
    QTest::mouseClick(&Button("lookLineColour"), Qt::LeftButton);
    EXPECT_FALSE(AllOffered().contains(QStringLiteral("No fill")));
    ClosePopup();
}

TEST_F(LookBars, AnotherColourIsAskedForAndRemembered) {
    Select({&a});
    a.SetFillColor(0x445566);
    ProcessEvents();
    desktop.ExpectColour(0x123456);
    Choose("lookFill", QStringLiteral("Other..."));
    EXPECT_EQ(a.FillColor(), 0x123456);
    EXPECT_EQ(desktop.dialogs.startColours.back(), 0x445566);
    EXPECT_EQ(RecentColours(), std::vector<support::Colour>{0x123456});
    desktop.ExpectColour(support::kNoColour);
    Choose("lookFill", QStringLiteral("Other..."));
    EXPECT_EQ(a.FillColor(), 0x123456) << "cancelled";
    EXPECT_EQ(RecentColours().size(), 1U);
}

TEST_F(LookBars, RecentColoursAreFewTheLastOneFirst) {
    for (int colour = 1; colour <= 9; ++colour) NoteRecentColour(colour);
    NoteRecentColour(6);
    EXPECT_EQ(RecentColours(), (std::vector<support::Colour>{6, 9, 8, 7, 5, 4}));
    settings::SaveSet(QStringLiteral("RecentColours"), QStringLiteral("x -5 99999999 7"));
    EXPECT_EQ(RecentColours(), std::vector<support::Colour>{7});
}

TEST_F(LookBars, NoFillAndBack) {
    Select({&a});
    Choose("lookFill", QStringLiteral("No fill"));
    EXPECT_TRUE(a.Transparent());
    EXPECT_EQ(Button("lookFill").toolTip(), QStringLiteral("Fill: none"));
    Choose("lookFill", Sky());
    EXPECT_FALSE(a.Transparent());
}

TEST_F(LookBars, TheValueOfTheSelectionIsMarkedInThePopup) {
    Select({&a});
    a.SetDrawWidth(4);
    ProcessEvents();
    QTest::mouseClick(&Button("lookLineWidth"), Qt::LeftButton);
    EXPECT_TRUE(Offered(QStringLiteral("4 px"))->isChecked());
    EXPECT_FALSE(Offered(QStringLiteral("3 px"))->isChecked());
    ClosePopup();
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
