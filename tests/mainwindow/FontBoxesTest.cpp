#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/ListIndex.h"
#include "mainwindow/controls/FontBox.h"
#include "mainwindow/controls/FontSamples.h"
#include "mainwindow/window/frmPics.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>

namespace mainwindow::testing {

class FontBoxes : public WindowTest {
protected:
    static QComboBox &Font(frmMain &window) { return *window.findChild<QComboBox *>("cboFont"); }
    static QComboBox &Size(frmMain &window) { return *window.findChild<QComboBox *>("cboFontSize"); }
    static QString Shown(frmMain &window) {
        return Font(window).currentText() + u' ' + Size(window).currentText();
    }
    // Types into the box in place of what stands there.
    void Type(QComboBox &box, const QString &text, Qt::Key end = Qt::Key_Return) {
        box.setFocus();
        box.lineEdit()->selectAll();
        QTest::keyClicks(&box, text);
        QTest::keyClick(&box, end);
        ProcessEvents();
    }
    // Opens the list and clicks on the entry.
    void Choose(QComboBox &box, int index) {
        box.setFocus();
        box.showPopup();
        ProcessEvents();
        const QRect entry = box.view()->visualRect(box.model()->index(index, 0));
        QTest::mouseMove(box.view()->viewport(), entry.center());
        ProcessEvents();
        QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, entry.center());
        ProcessEvents();
    }
};

TEST_F(FontBoxes, StandInTheFormatToolbarWithTheMachinesFontsAndTheUsualSizes) {
    frmMain &window = NewWindow();
    auto *bar = window.findChild<QToolBar *>(QStringLiteral("tlbFormat"));
    EXPECT_TRUE(bar->isAncestorOf(&Font(window)));
    EXPECT_TRUE(bar->isAncestorOf(&Size(window)));
    const QStringList fonts = frmPics::Shared().cboFont();
    for (int i = 0; i < fonts.size(); ++i) EXPECT_EQ(Font(window).itemText(i), fonts.at(i));
    EXPECT_GE(dialogs::DoFindIndex2(Size(window), QStringLiteral("72")), 0);
    EXPECT_EQ(Font(window).accessibleName(), QStringLiteral("Font"));
    EXPECT_EQ(Size(window).accessibleName(), QStringLiteral("Font size"));
    EXPECT_FALSE(Font(window).toolTip().isEmpty());
    EXPECT_FALSE(Size(window).toolTip().isEmpty());
}

TEST_F(FontBoxes, ANewWindowShowsTheSurfacesOwnFont) {
    frmMain &window = NewWindow();
    const diagram::Font &font = window.CurrentSurface().Screen().Font();
    EXPECT_EQ(Shown(window), font.Name() + u' ' + QString::number(qRound(font.Size())));
}

TEST_F(FontBoxes, FollowTheNodeThenTheLinkThenTheSurface) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    diagram::Link &link = node.Links().Add(AddNode(window, 6000, 300));
    node.SetFont(diagram::Font(QStringLiteral("Courier"), 11.6));
    link.SetFont(diagram::Font(QStringLiteral("No Such Font"), 14));
    Click(window, {400, 400});
    EXPECT_EQ(Shown(window), QStringLiteral("Courier 12"));
    Click(window, {4000, 750});
    ASSERT_TRUE(link.Selected());
    EXPECT_EQ(Shown(window), QStringLiteral("No Such Font 14"));
    Click(window, {4000, 6000});
    const diagram::Font &own = window.CurrentSurface().Screen().Font();
    EXPECT_EQ(Shown(window), own.Name() + u' ' + QString::number(qRound(own.Size())));
    EXPECT_EQ(node.Font(), diagram::Font(QStringLiteral("Courier"), 11.6));
    EXPECT_EQ(link.Font(), diagram::Font(QStringLiteral("No Such Font"), 14));
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(FontBoxes, ARubberBandOverLinksAloneLeavesThemAsTheyAre) {
    frmMain &window = NewWindow();
    diagram::Link &link = AddNode(window, 300, 300).Links().Add(AddNode(window, 6000, 300));
    link.SetFont(diagram::Font(QStringLiteral("Courier"), 20));
    const QString before = Shown(window);
    Drag(window, {1700, 1350}, {6100, 600}, Qt::ShiftModifier);
    ASSERT_TRUE(link.Selected());
    EXPECT_EQ(Shown(window), before);
}

TEST_F(FontBoxes, AFontThatIsNotInstalledIsAddedOnce) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).SetFont(diagram::Font(QStringLiteral("No Such Font"), 13));
    const int before = Font(window).count();
    for (int i = 0; i < 2; ++i) {
        Click(window, {400, 400});
        Click(window, {4000, 6000});
    }
    EXPECT_EQ(Font(window).count(), before + 1);
}

TEST_F(FontBoxes, SwitchingTheSliceShowsWhatIsSelectedThere) {
    frmMain &window = NewWindow();
    window.DoOpen(SavedMap(QStringLiteral("plan.map"), 1, 2), false);
    ProcessEvents();
    diagram::Node &far = window.AddFlow1()[1].Nodes().Add(0, 0, 900, 900);
    far.SetFont(diagram::Font(QStringLiteral("Courier"), 22));
    far.SetSelected(true);
    window.CurrentView().setFocus();
    Press(window, QStringLiteral("Ctrl+PgDown"));
    EXPECT_EQ(Shown(window), QStringLiteral("Courier 22"));
}

TEST_F(FontBoxes, AnEntryChosenFromTheListGoesToTheSelectionAlone) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    diagram::Node &other = AddNode(window, 6000, 300);
    diagram::Link &link = node.Links().Add(other);
    node.SetFont(diagram::Font(QStringLiteral("Courier"), 9, true));
    const diagram::Font plain = other.Font();
    node.SetSelected(true);
    link.SetSelected(true);
    window.AddFlow1_afGotFocus(0);
    const int twenty = dialogs::DoFindIndex2(Size(window), QStringLiteral("20"));
    Choose(Size(window), twenty);
    EXPECT_EQ(node.Font(), diagram::Font(QStringLiteral("Courier"), 20, true));
    EXPECT_DOUBLE_EQ(link.Font().Size(), 20);
    EXPECT_EQ(other.Font(), plain);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_TRUE(window.CurrentSurface().CanUndo());
}

TEST_F(FontBoxes, WhatIsTypedAndConfirmedGoesToTheSelection) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    node.SetSelected(true);
    Type(Font(window), QStringLiteral("No Such Font"));
    EXPECT_EQ(node.Font().Name(), QStringLiteral("No Such Font"));
    EXPECT_TRUE(window.CurrentView().hasFocus());
    Type(Size(window), QStringLiteral("13"));
    EXPECT_DOUBLE_EQ(node.Font().Size(), 13);
    EXPECT_EQ(Shown(window), QStringLiteral("No Such Font 13"));
    EXPECT_FALSE(window.clsSettings().Dirty);
    window.CurrentSurface().Undo();
    EXPECT_EQ(node.Font().Name(), QStringLiteral("No Such Font"));
    EXPECT_NE(node.Font().Size(), 13);
}

TEST_F(FontBoxes, WhatIsNoSizeIsNotTaken) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    const diagram::Font before = node.Font();
    node.SetSelected(true);
    for (const char *text : {"x", "0", ""}) {
        Type(Size(window), QString::fromLatin1(text));
        window.CurrentView().setFocus();
        ProcessEvents();
        EXPECT_EQ(node.Font(), before) << text;
        EXPECT_EQ(Size(window).currentText(), QString::number(qRound(before.Size()))) << text;
    }
}

TEST_F(FontBoxes, TheArrowKeysStepThroughTheListAndStayInTheBox) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    node.SetFont(diagram::Font(QStringLiteral("Courier"), 10));
    Click(window, {400, 400});
    Size(window).setFocus();
    QTest::keyClick(&Size(window), Qt::Key_Down);
    QTest::keyClick(&Size(window), Qt::Key_Down);
    ProcessEvents();
    EXPECT_DOUBLE_EQ(node.Font().Size(), 12);
    EXPECT_TRUE(Size(window).hasFocus());
}

TEST_F(FontBoxes, EscapeAndLeavingGiveUpWhatWasTyped) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    const diagram::Font before = node.Font();
    node.SetSelected(true);
    window.AddFlow1_afGotFocus(0);
    Type(Size(window), QStringLiteral("36"), Qt::Key_Escape);
    EXPECT_EQ(node.Font(), before);
    EXPECT_TRUE(window.CurrentView().hasFocus());
    Size(window).setFocus();
    Size(window).lineEdit()->selectAll();
    QTest::keyClicks(&Size(window), QStringLiteral("36"));
    Click(window, {400, 400});
    EXPECT_EQ(node.Font(), before);
    EXPECT_EQ(Size(window).currentText(), QString::number(qRound(before.Size())));
}

TEST_F(FontBoxes, CtrlCInTheFieldCopiesItsText) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).SetSelected(true);
    window.AddFlow1_afGotFocus(0);
    Font(window).setFocus();
    Font(window).lineEdit()->selectAll();
    QApplication::clipboard()->clear();
    QTest::keySequence(&Font(window), QKeySequence(QStringLiteral("Ctrl+C")));
    EXPECT_EQ(QApplication::clipboard()->text(), Font(window).currentText());
    QApplication::clipboard()->clear();
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditCopy"));
    EXPECT_EQ(QApplication::clipboard()->text(), Font(window).currentText());
    EXPECT_TRUE(Font(window).hasFocus());
}

TEST_F(FontBoxes, TheirKeysReachThemFromTheSurface) {
    frmMain &window = NewWindow();
    Press(window, QStringLiteral("Ctrl+Shift+F"));
    EXPECT_TRUE(Font(window).hasFocus());
    window.CurrentView().setFocus();
    Press(window, QStringLiteral("Ctrl+Alt+F"));
    EXPECT_TRUE(Size(window).hasFocus());
}

TEST_F(FontBoxes, TheWheelOverABoxWithoutFocusChangesNothing) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    const diagram::Font before = node.Font();
    node.SetSelected(true);
    window.AddFlow1_afGotFocus(0);
    QWheelEvent wheel(QPointF(5, 5), Size(window).mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                      Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Size(window), &wheel);
    EXPECT_EQ(node.Font(), before);
}

TEST(FontMeant, PrefersTheWholeNameThenItsBeginningThenAnyPart) {
    const QStringList names{QStringLiteral("Noto Sans Mono"), QStringLiteral("Mono"),
                            QStringLiteral("Monotype"), QStringLiteral("Sans")};
    EXPECT_EQ(FontMeant(names, QStringLiteral("mono")), QStringLiteral("Mono"));
    EXPECT_EQ(FontMeant(names, QStringLiteral(" MONOT")), QStringLiteral("Monotype"));
    EXPECT_EQ(FontMeant(names, QStringLiteral("sans m")), QStringLiteral("Noto Sans Mono"));
    EXPECT_EQ(FontMeant(names, QStringLiteral("Courier")), QStringLiteral("Courier"));
    EXPECT_EQ(FontMeant(names, QString()), QString());
}

TEST_F(FontBoxes, APartOfANameFindsTheFont) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    node.SetSelected(true);
    Font(window).addItem(QStringLiteral("Zebra Stripes"));
    Type(Font(window), QStringLiteral("stripes"));
    EXPECT_EQ(node.Font().Name(), QStringLiteral("Zebra Stripes"));
    EXPECT_TRUE(window.CurrentView().hasFocus());
}

TEST_F(FontBoxes, TheListOfWhatIsTypedOffersEveryFontThatHoldsIt) {
    frmMain &window = NewWindow();
    Font(window).addItems({QStringLiteral("Zebra Stripes"), QStringLiteral("Old Zebra")});
    Font(window).setFocus();
    Font(window).lineEdit()->selectAll();
    QTest::keyClicks(&Font(window), QStringLiteral("zebra"));
    const QCompleter *matches = Font(window).completer();
    EXPECT_TRUE(matches->popup()->isVisible());
    EXPECT_EQ(matches->completionCount(), 2);
    QTest::keyClick(matches->popup(), Qt::Key_Escape);
    EXPECT_FALSE(matches->popup()->isVisible());
}

TEST_F(FontBoxes, SamplesAreMadeWhenTheUserComesToTheBox) {
    frmMain &window = NewWindow();
    EXPECT_FALSE(Font(window).findChild<FontSamples *>());
    Font(window).setFocus();
    EXPECT_TRUE(qobject_cast<FontSamples *>(Font(window).view()->itemDelegate()));
    EXPECT_FALSE(Size(window).findChild<FontSamples *>());
}

} // namespace mainwindow::testing
