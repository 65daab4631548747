#include "diagram/interaction/EditText.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/scene/Scene.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QWindow>

namespace diagram::testing {

class Editing : public ViewTest {
protected:
    Editing() : a(AddNode("a", 100, 100, 200, 100)), b(AddNode("b", 400, 300)) {
        a.SetText(QStringLiteral("old"));
        a.SetSelected(true);
        Settle();
    }
    QTextEdit *Editor() const { return view->findChild<QTextEdit *>(); }
    Node &a, &b;
};

TEST_F(Editing, F2_EditsTheTextAndCtrlEnterKeepsIt) {
    Key(Qt::Key_F2);
    ASSERT_TRUE(view->IsEditing());
    EXPECT_EQ(Editor()->toPlainText(), QStringLiteral("old"));
    Type("new");
    Key(Qt::Key_Return);
    Type("line");
    EXPECT_EQ(a.Text(), QStringLiteral("old"));
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(a.Text(), QStringLiteral("new\r\nline"));
    EXPECT_EQ(events.Count("AfterEdit"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(a.Text(), QStringLiteral("old"));
}

TEST_F(Editing, Typing_ReplacesTheText) {
    view->setFocus();
    Type("xyz");
    ASSERT_TRUE(view->IsEditing());
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.Text(), QStringLiteral("xyz"));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Editing, Typing_WithNothingSelectedDoesNothing) {
    a.SetSelected(false);
    view->setFocus();
    Type("xyz");
    EXPECT_FALSE(view->IsEditing());
    EXPECT_FALSE(view->BeginEdit());
}

TEST_F(Editing, Writing_TellsItsKeysAsLongAsItGoesOn) {
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    Key(Qt::Key_F2);
    ASSERT_FALSE(hints.isEmpty());
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::KeysWrite);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::Nothing);
    surface.UnselectAll();
    Type("x");
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::SelectFirst);
}

TEST_F(Editing, Escape_GivesUp) {
    Key(Qt::Key_F2);
    Type("new");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(a.Text(), QStringLiteral("old"));
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterEdit"), 0);
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Editing, ClickOutside_KeepsTheText) {
    Key(Qt::Key_F2);
    Type("new");
    Click(QPoint(600, 500));
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(a.Text(), QStringLiteral("new"));
    EXPECT_EQ(events.Count("AfterEdit"), 1);
}

// As the platform delivers them: the press moves the focus, and with it ends the editing, before it comes to
// the view.
TEST_F(Editing, AClickThatEndsTheTypingIsWholeAndTheNextDragBeginsWhereItIs) {
    QWindow *window = view->window()->windowHandle();
    const auto inWindow = [this](const QPoint &at) { return view->viewport()->mapTo(view->window(), at); };
    for (const QPoint &click : {QPoint(600, 500), Body(a), Body(b), QPoint(200, 150)}) {
        a.SetSelected(true);
        Key(Qt::Key_F2);
        Type("new");
        ASSERT_TRUE(view->IsEditing());
        QTest::mousePress(window, Qt::LeftButton, {}, inWindow(click));
        QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(click));
        const QPointF before = b.Bounds().topLeft(), other = a.Bounds().topLeft();
        const QPoint from = Body(b);
        QTest::mousePress(window, Qt::LeftButton, {}, inWindow(from));
        EXPECT_FALSE(view->IsEditing());
        for (const QPoint &on : {QPoint(20, 10), QPoint(60, 30)})
            QTest::mouseMove(window, inWindow(from + on));
        QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(from + QPoint(60, 30)));
        EXPECT_EQ(b.Bounds().topLeft() - before, QPointF(900, 450));
        EXPECT_EQ(a.Bounds().topLeft(), other);
        surface.Undo();
        surface.UnselectAll();
    }
}

TEST_F(Editing, SameText_IsNoStep) {
    a.SetText(QStringLiteral("one\r\ntwo"));
    Key(Qt::Key_F2);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.Text(), QStringLiteral("one\r\ntwo"));
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.Count("AfterEdit"), 0);
}

TEST_F(Editing, Editor_StandsOnTheNodeInItsFont) {
    a.SetFont(Font(QStringLiteral("DejaVu Sans"), 12, true));
    a.SetAlignment(0);
    surface.SetxZoom(150);
    surface.SetyZoom(150);
    Settle();
    Key(Qt::Key_F2);
    ASSERT_NE(Editor(), nullptr);
    const QRectF node(view->FromSurface(a.Bounds().topLeft()), view->FromSurface(a.Bounds().bottomRight()));
    EXPECT_TRUE(node.adjusted(-1, -1, 1, 1).contains(Editor()->geometry()));
    EXPECT_TRUE(Editor()->font().bold());
    EXPECT_NEAR(Editor()->font().pointSizeF() * Editor()->logicalDpiY() / 72, 12 * 1.5 * 96 / 72, 0.1);
    EXPECT_EQ(Editor()->document()->defaultTextOption().alignment(), Qt::AlignLeft);
    view->EndEdit(false);
}

TEST_F(Editing, Editor_GrowsWithTheTextAndGoesWithTheScroll) {
    AddNode("far", 2000, 2000);
    Settle();
    Key(Qt::Key_F2);
    const int height = Editor()->height();
    for (int line = 0; line < 20; ++line) Key(Qt::Key_Return);
    EXPECT_GT(Editor()->height(), height);
    const int left = Editor()->x();
    Wheel(QPoint(700, 500), -120, Qt::ShiftModifier);
    EXPECT_LT(Editor()->x(), left);
    view->EndEdit(false);
}

TEST_F(Editing, KeepText_KeepsWhatWasTypedSoFarAndLetsTheTypingGoOn) {
    Key(Qt::Key_F2);
    Type("new");
    view->KeepText();
    view->KeepText();
    EXPECT_EQ(a.Text(), QStringLiteral("new"));
    EXPECT_EQ(events.Count("AfterEdit"), 1);
    EXPECT_TRUE(Editor()->hasFocus());
    Type("er");
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.Text(), QStringLiteral("newer"));
    EXPECT_EQ(UndoSteps(), 2);
}

TEST_F(Editing, KeepText_OutlivesAListenerThatEndsTheEditing) {
    events.also = [&](const char *name) {
        if (QLatin1String(name) == QLatin1String("AfterEdit")) view->EndEdit(true);
    };
    Key(Qt::Key_F2);
    Type("new");
    view->KeepText();
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(a.Text(), QStringLiteral("new"));
}

TEST_F(Editing, Editor_HoldsTheFirstTextAndHidesBothWhereBothAreShown) {
    a.SetBounds(1500, 1500, 3000, 3000);
    a.SetEvent(QStringLiteral("one\r\ntwo\r\nthree"));
    surface.Screen().SetShowsBothTexts(true);
    Settle();
    Key(Qt::Key_F2);
    EXPECT_EQ(Editor()->toPlainText(), QStringLiteral("old"));
    EXPECT_GT(Editor()->mask().boundingRect().height(), 3 * Editor()->fontMetrics().height());
    view->EndEdit(false);
}

TEST_F(Editing, Label_OfALinkIsEditedTheSame) {
    Link &link = AddLink(a, b);
    surface.UnselectAll();
    link.SetSelected(true);
    Settle();
    Key(Qt::Key_F2);
    ASSERT_TRUE(view->IsEditing());
    Type("label");
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(link.Text(), QStringLiteral("label"));
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterEdit"), 1);
}

TEST_F(Editing, Label_IsEditedInTheLinksFontAndEscapeGivesUp) {
    Link &link = AddLink(a, b);
    link.SetText(QStringLiteral("old label"));
    link.SetFont(Font(QStringLiteral("Arial"), 13, true, true));
    link.SetForeColor(support::Rgb(0, 0, 200));
    surface.UnselectAll();
    link.SetSelected(true);
    Settle();
    const QPoint middle = At(view->TheScene().LabelBounds(link).center());
    Type("new");
    ASSERT_TRUE(view->IsEditing());
    EXPECT_TRUE(Editor()->font().bold() && Editor()->font().italic());
    EXPECT_EQ(Editor()->palette().color(QPalette::Text), QColor(0, 0, 200));
    EXPECT_TRUE(Editor()->geometry().contains(middle));
    Key(Qt::Key_Escape);
    EXPECT_EQ(link.Text(), QStringLiteral("old label"));
    EXPECT_FALSE(surface.CanUndo());
    Type("new");
    Click(QPoint(650, 500));
    EXPECT_EQ(link.Text(), QStringLiteral("new"));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Editing, RemovalOfTheNode_EndsTheEditing) {
    Key(Qt::Key_F2);
    surface.Remove(a);
    Settle();
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(events.Count("AfterEdit"), 0);
}

TEST_F(Editing, ViewDestroyedWhileEditing_GivesUp) {
    Key(Qt::Key_F2);
    Type("new");
    view.reset();
    EXPECT_EQ(a.Text(), QStringLiteral("old"));
    view = std::make_unique<SurfaceView>(surface);
}

TEST_F(Editing, PastedText_IsPlainAndOneStep) {
    auto *held = new QMimeData;
    held->setHtml(QStringLiteral("<b>bold</b><img src='x.png'><h1>large</h1>"));
    held->setText(QStringLiteral("bold\nlarge"));
    QApplication::clipboard()->setMimeData(held);
    Key(Qt::Key_F2);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Editor()->toPlainText(), QStringLiteral("bold\nlarge"));
    EXPECT_FALSE(Editor()->textCursor().charFormat().font().bold());
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.Text(), QStringLiteral("bold\r\nlarge"));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Editing, ComposedText_StartsTheEditorAndReplacesTheText) {
    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QApplication::sendEvent(view.get(), &composing);
    ASSERT_TRUE(view->IsEditing());
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("\u4f60"));
    QApplication::sendEvent(Editor(), &done);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.Text(), QStringLiteral("\u4f60"));
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Editing, ComposedText_WithNothingSelectedDoesNothing) {
    surface.UnselectAll();
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("x"));
    QApplication::sendEvent(view.get(), &done);
    EXPECT_FALSE(view->IsEditing());
    QInputMethodQueryEvent asked(Qt::ImEnabled);
    QApplication::sendEvent(view.get(), &asked);
    EXPECT_FALSE(asked.value(Qt::ImEnabled).toBool());
}

TEST_F(Editing, Editor_TakesFontAlignmentMarginsAndColoursOfTheNode) {
    a.SetFont(Font(QStringLiteral("Arial"), 15, true, true));
    a.SetAlignment(0);
    a.SetxTextMargin(12);
    a.SetyTextMargin(9);
    a.SetForeColor(support::Rgb(200, 0, 0));
    a.SetFillColor(support::Rgb(200, 255, 200));
    Settle();
    Key(Qt::Key_F2);
    EXPECT_TRUE(Editor()->font().bold() && Editor()->font().italic());
    EXPECT_TRUE(Editor()->document()->defaultTextOption().alignment().testFlag(Qt::AlignLeft));
    EXPECT_GE(Editor()->geometry().left(), 100 + 12);
    EXPECT_GE(Editor()->geometry().top(), 100 + 9);
    EXPECT_LE(Editor()->geometry().right(), 300 - 12);
    EXPECT_EQ(Editor()->palette().color(QPalette::Text), QColor(200, 0, 0));
    EXPECT_EQ(Editor()->palette().color(QPalette::Base), QColor(200, 255, 200));
    const double size = Editor()->font().pointSizeF();
    view->ZoomAt(200, QPointF());
    EXPECT_NEAR(Editor()->font().pointSizeF(), 2 * size, 0.1);
    EXPECT_GE(Editor()->geometry().left(), 2 * (100 + 12));
}

TEST_F(Editing, MegabyteOfText_IsNotEditedInPlaceAndSaysSo) {
    const QString text = QStringLiteral("some words ").repeated(100000);
    a.SetText(text);
    Settle();
    QSignalSpy hints(view.get(), &SurfaceView::HintShown);
    Key(Qt::Key_F2);
    EXPECT_FALSE(view->IsEditing());
    ASSERT_FALSE(hints.isEmpty());
    EXPECT_EQ(hints.last()[0].value<Hint>(), Hint::TextTooLong);
    EXPECT_EQ(a.Text(), text);
    a.SetText(text.left(kLongestInPlace));
    Key(Qt::Key_F2);
    EXPECT_TRUE(view->IsEditing());
}

TEST_F(Editing, MegabytePasted_IsCutWhereEditingInPlaceEnds) {
    QApplication::clipboard()->setText(QStringLiteral("some words ").repeated(100000));
    Key(Qt::Key_F2);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_LE(Editor()->toPlainText().size(), kLongestInPlace);
    EXPECT_GT(Editor()->toPlainText().size(), kLongestInPlace - 10);
    Key(Qt::Key_Escape);
    EXPECT_EQ(a.Text(), QStringLiteral("old"));
}

} // namespace diagram::testing
