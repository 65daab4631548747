// What the popups of the look bar offer, and what choosing it does to the selection.
#include "tests/mainwindow/LookBarTest.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/look/RecentColours.h"
#include "mainwindow/slices/NewLinkRouting.h"
#include "settings/GetSet.h"
#include "settings/NewLinks.h"
#include "widgets/ShapeGrid.h"
#include "widgets/ShapePopup.h"

#include <QLineEdit>

namespace mainwindow::testing {

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

} // namespace mainwindow::testing
