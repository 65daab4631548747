// The two texts of a node and the font of the first.
#include "dialogs/PlainTextBox.h"
#include "tests/dialogs/NodeDialogTest.h"
#include "widgets/SwatchButton.h"

#include <QClipboard>
#include <QMimeData>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace dialogs::testing {

namespace {
const support::FontChoice kCourier{QStringLiteral("Courier"), 14, true, false, true, true};
} // namespace

class NodeTexts : public NodeDialogTest {
protected:
    void OpenTexts() {
        Open(*node);
        GoTo(kTextPage);
        Settle();
    }
    PlainTextBox &txtText() { return Control<PlainTextBox>("txtText"); }
    PlainTextBox &txtOther() { return Control<PlainTextBox>("txtOther"); }
    QTabBar &tabText() { return Control<QTabBar>("tabText"); }
    QAction &Button(const char *key) {
        for (QAction *action : Control<QToolBar>("tlbMain").actions())
            if (action->data().toString() == QLatin1String(key)) return *action;
        throw std::runtime_error(key);
    }
    void Press(const char *key) {
        qobject_cast<QToolButton *>(Control<QToolBar>("tlbMain").widgetForAction(&Button(key)))->click();
        Settle();
    }
};

TEST_F(NodeTexts, ShowBothTextsOneInFrontOfTheOther) {
    node->SetText(QStringLiteral("first"));
    node->SetEvent(QStringLiteral("second"));
    OpenTexts();
    EXPECT_EQ(tabText().tabText(0), QStringLiteral("Text"));
    EXPECT_EQ(tabText().tabText(1), QStringLiteral("Other"));
    EXPECT_EQ(txtText().toPlainText(), QStringLiteral("first"));
    EXPECT_TRUE(txtText().isVisible());
    EXPECT_FALSE(txtOther().isVisible());
    tabText().setCurrentIndex(1);
    EXPECT_EQ(txtOther().toPlainText(), QStringLiteral("second"));
    EXPECT_FALSE(txtText().isVisible());
    EXPECT_TRUE(txtOther().isVisible());
}

TEST_F(NodeTexts, AClickOnATabLosesNothing) {
    OpenTexts();
    QTest::keyClicks(&txtText(), QStringLiteral("a"));
    tabText().setCurrentIndex(1);
    QTest::keyClicks(&txtOther(), QStringLiteral("b"));
    tabText().setCurrentIndex(0);
    tabText().setCurrentIndex(1);
    Click("OKButton");
    EXPECT_EQ(node->Text(), QStringLiteral("anode"));
    EXPECT_EQ(node->Event(), QStringLiteral("b"));
}

TEST_F(NodeTexts, AnEditedTextKeepsItsLineEndsAndHardBlanks) {
    for (const char *end : {"\r\n", "\n", "\r"}) {
        node->SetText(QStringLiteral("it's\u00a0\"one\",") + QLatin1String(end) + QStringLiteral("two"));
        OpenTexts();
        txtText().moveCursor(QTextCursor::End);
        QTest::keyClick(&txtText(), Qt::Key_Return);
        QTest::keyClicks(&txtText(), QStringLiteral("x"));
        Click("OKButton");
        EXPECT_EQ(node->Text(), QStringLiteral("it's\u00a0\"one\",") + QLatin1String(end) +
                                    QStringLiteral("two") + QLatin1String(end) + u'x');
    }
}

TEST_F(NodeTexts, ATextOfOneLineGetsTheLineEndsOfMaps) {
    OpenTexts();
    txtText().moveCursor(QTextCursor::End);
    QTest::keyClick(&txtText(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&txtText(), QStringLiteral("x"));
    Click("OKButton");
    EXPECT_EQ(node->Text(), QStringLiteral("node\r\nx"));
}

TEST_F(NodeTexts, ATextThatIsTypedAndTakenBackIsNotEdited) {
    node->SetText(QStringLiteral("a\rb\nc"));
    OpenTexts();
    QTest::keyClicks(&txtText(), QStringLiteral("x"));
    EXPECT_TRUE(form->Edit().Text);
    QTest::keySequence(&txtText(), QKeySequence::Undo);
    EXPECT_FALSE(form->Edit().Text);
    Click("OKButton");
    EXPECT_EQ(node->Text(), QStringLiteral("a\rb\nc"));
}

TEST_F(NodeTexts, EachBoxTakesBackItsOwnTyping) {
    OpenTexts();
    QTest::keyClicks(&txtText(), QStringLiteral("x"));
    QTest::keyClicks(&txtOther(), QStringLiteral("y"));
    QTest::keySequence(&txtText(), QKeySequence::Undo);
    EXPECT_EQ(txtText().toPlainText(), QStringLiteral("node"));
    EXPECT_EQ(txtOther().toPlainText(), QStringLiteral("y"));
    QTest::keySequence(&txtText(), QKeySequence::Redo);
    EXPECT_EQ(txtText().toPlainText(), QStringLiteral("xnode"));
}

TEST_F(NodeTexts, NothingRichIsPasted) {
    OpenTexts();
    auto *rich = new QMimeData;
    rich->setHtml(QStringLiteral("<b>bold</b>"));
    rich->setText(QStringLiteral("plain"));
    QApplication::clipboard()->setMimeData(rich);
    txtOther().paste();
    Click("OKButton");
    EXPECT_EQ(node->Event(), QStringLiteral("plain"));
}

TEST_F(NodeTexts, AnAppliedTextCountsAsTheStoredOne) {
    OpenTexts();
    QTest::keyClicks(&txtText(), QStringLiteral("x"));
    Click("cmdApply");
    EXPECT_FALSE(form->Edit().Text);
    node->SetText(QStringLiteral("elsewhere"));
    Click("cmdApply");
    EXPECT_EQ(node->Text(), QStringLiteral("elsewhere"));
}

TEST_F(NodeTexts, ATextOfAHundredThousandCharactersComesBackWhole) {
    QString text;
    while (text.size() < 100000) text += QStringLiteral("All work and no play.\r\n");
    node->SetText(text);
    node->SetEvent(QString(100000, u'x'));
    OpenTexts();
    QTest::keyClicks(&txtText(), QStringLiteral("y"));
    Click("OKButton");
    EXPECT_EQ(node->Text(), u'y' + text);
    EXPECT_EQ(node->Event(), QString(100000, u'x'));
}

TEST_F(NodeTexts, OnlyThePieceThatTheSampleCanShowIsLaidOut) {
    node->SetText(QString(100000, u'x'));
    OpenTexts();
    EXPECT_LE(form->Sample()->Node().Text().size(), 1000);
}

TEST_F(NodeTexts, EnterStaysInTheTextAndOkIsTheDefaultElsewhere) {
    OpenTexts();
    auto &ok = Control<QPushButton>("OKButton");
    EXPECT_TRUE(ok.isDefault());
    form->activateWindow();
    txtText().setFocus();
    Settle();
    ASSERT_TRUE(txtText().hasFocus());
    EXPECT_FALSE(ok.isDefault());
    QTest::keyClick(&txtText(), Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    tabText().setFocus();
    EXPECT_TRUE(ok.isDefault());
}

// Font

TEST_F(NodeTexts, TheBoxHasTheFontOfTheNode) {
    node->SetFont(diagram::Font(QStringLiteral("Courier"), 14, true, false, true));
    OpenTexts();
    EXPECT_EQ(txtText().font().family(), QStringLiteral("Courier"));
    EXPECT_EQ(txtText().font().pointSizeF(), 14);
    EXPECT_TRUE(txtText().font().bold());
    EXPECT_TRUE(txtText().font().underline());
}

TEST_F(NodeTexts, TheButtonsWorkOnTheFontEvenWhileTheOtherTextIsInFront) {
    OpenTexts();
    tabText().setCurrentIndex(1);
    Press("BOLD");
    Press("ULINE");
    EXPECT_TRUE(txtText().font().bold());
    EXPECT_FALSE(txtOther().font().bold());
    Press("ULINE");
    Press("ITALIC");
    Click("OKButton");
    EXPECT_TRUE(node->Font().Bold());
    EXPECT_TRUE(node->Font().Italic());
    EXPECT_FALSE(node->Font().Underline());
}

TEST_F(NodeTexts, TheButtonsDontKnowTheFontAtFirst) {
    diagram::Font bold;
    bold.SetBold(true);
    node->SetFont(bold);
    OpenTexts();
    EXPECT_FALSE(Button("BOLD").isChecked());
    Press("BOLD");
    EXPECT_EQ(form->Edit().look.font, bold);
    Press("BOLD");
    EXPECT_FALSE(form->Edit().look.font.Bold());
}

TEST_F(NodeTexts, TheFontDialogSetsFontColourAndButtons) {
    OpenTexts();
    Press("ITALIC");
    desktop.ExpectFont(kCourier, 0x123456);
    Click("cmdFont");
    EXPECT_EQ(form->Edit().look.font, diagram::Font(QStringLiteral("Courier"), 14, true, false, true, true));
    EXPECT_EQ(Control<widgets::SwatchButton>("cmdChangeFore").Value(), 0x123456);
    EXPECT_TRUE(Button("BOLD").isChecked());
    EXPECT_FALSE(Button("ITALIC").isChecked());
    EXPECT_TRUE(Button("ULINE").isChecked());
}

TEST_F(NodeTexts, ACancelledFontDialogLeavesTheFontAndSetsTheButtons) {
    diagram::Font bold;
    bold.SetBold(true);
    node->SetFont(bold);
    OpenTexts();
    desktop.ExpectFontCancelled();
    Click("cmdFont");
    EXPECT_EQ(form->Edit().look.font, bold);
    EXPECT_TRUE(Button("BOLD").isChecked());
}

TEST_F(NodeTexts, OfSeveralNodesAllGetTheFont) {
    diagram::Node &other = AddNode(QStringLiteral("other"));
    other.SetSelected(true);
    OpenTexts();
    Press("BOLD");
    QTest::keyClicks(&txtText(), QStringLiteral("x"));
    Click("OKButton");
    EXPECT_TRUE(other.Font().Bold());
    EXPECT_EQ(other.Text(), QStringLiteral("other"));
    EXPECT_EQ(node->Text(), QStringLiteral("xnode"));
}

} // namespace dialogs::testing
