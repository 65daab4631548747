#include "output/export/form/frmExport.h"

#include "tests/output/export/ExportTest.h"

#include <gmock/gmock.h>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace output {
namespace {

class ExportForm : public output::testing::ExportTest {
protected:
    void Open(const QString &name) {
        argument.Filename = Out(name);
        form = std::make_unique<frmExport>(argument, nullptr);
        form->show();
    }
    template <typename Widget = QWidget>
    Widget *Find(const char *name) const {
        return form->findChild<Widget *>(QLatin1String(name));
    }
    QString LabelText(const char *name) const { return Find<QLabel>(name)->text(); }

    clsExport argument{*window, first, QString()};
    std::unique_ptr<frmExport> form;
};

TEST_F(ExportForm, HasItsCaptionsWithTheProductsWords) {
    Open(QStringLiteral("a.rtf"));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Export Settings"));
    EXPECT_EQ(Find<QGroupBox>("fraOutput")->title(), QStringLiteral("&Output Options:"));
    EXPECT_EQ(form->chkNodes()->text(), QStringLiteral("Include Nodes"));
    EXPECT_EQ(form->chkDetails()->text(), QStringLiteral("Show Node Details"));
    EXPECT_EQ(form->chkAll()->text(), QStringLiteral("Export All Slice's"));
    EXPECT_EQ(form->chkMap()->text(), QStringLiteral("Insert Slice as picture"));
    EXPECT_EQ(form->optOutput(0)->text(), QStringLiteral("&Rich Text Format (RTF)"));
    EXPECT_EQ(form->optOutput(1)->text(), QStringLiteral("&HTML"));
    EXPECT_EQ(Find<QPushButton>("cmdCancel")->text(), QStringLiteral("&Cancel"));
    EXPECT_TRUE(Find<QPushButton>("cmdOK")->isDefault());
    EXPECT_FALSE(Find("picDoing")->isVisible());
}

TEST_F(ExportForm, TheFormatGoesByTheLastThreeLetters) {
    Open(QStringLiteral("a.Rtf"));
    EXPECT_TRUE(form->optOutput(0)->isChecked());
    Open(QStringLiteral("a.html"));
    EXPECT_TRUE(form->optOutput(1)->isChecked());
}

TEST_F(ExportForm, DetailsGoWithTheNodes) {
    Open(QStringLiteral("a.rtf"));
    EXPECT_TRUE(form->chkDetails()->isChecked());
    QTest::mouseClick(form->chkNodes(), Qt::LeftButton, {}, QPoint(5, form->chkNodes()->height() / 2));
    EXPECT_FALSE(form->chkNodes()->isChecked());
    EXPECT_FALSE(form->chkDetails()->isChecked());
    EXPECT_FALSE(form->chkDetails()->isEnabled());
    form->chkNodes()->click();
    EXPECT_TRUE(form->chkDetails()->isEnabled());
    EXPECT_FALSE(form->chkDetails()->isChecked());
}

TEST_F(ExportForm, ClearedNodesThatAreRememberedClearTheDetails) {
    RememberReportOptions({false, true, false, true, false});
    Open(QStringLiteral("a.rtf"));
    EXPECT_FALSE(form->chkDetails()->isChecked());
    EXPECT_FALSE(form->chkDetails()->isEnabled());
}

TEST_F(ExportForm, OkWritesTheReportOpensItRemembersTheOptionsAndCloses) {
    AddNode(first, QStringLiteral("Idea"));
    Open(QStringLiteral("a.rtf"));
    form->chkDetails()->setChecked(false);
    form->chkMap()->setChecked(false);
    desktop.ExpectLaunch(Out(QStringLiteral("a.rtf")));
    QTest::keyClick(form.get(), Qt::Key_Return);
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(LabelText("lblDoing"), QStringLiteral("Opening File..."));
    EXPECT_TRUE(Read(QStringLiteral("a.rtf")).contains(QStringLiteral("Idea")));
    EXPECT_FALSE(Read(QStringLiteral("a.rtf")).contains(QStringLiteral("Level: ")));
    EXPECT_EQ(LastReportOptions(QStringLiteral("a.rtf")), (ReportOptions{true, false, false, false, false}));
    EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
}

TEST_F(ExportForm, CancelWritesNothing) {
    Open(QStringLiteral("a.rtf"));
    Find<QPushButton>("cmdCancel")->click();
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_TRUE(Names().isEmpty());
}

// Looks at the form while it writes, then presses Escape.
TEST_F(ExportForm, WhileItWritesThePanelIsShownAndEscapeGivesUp) {
    for (int node = 0; node < 200; ++node) AddNode(first, QStringLiteral("Node %1").arg(node));
    AddSlice(QStringLiteral("Two"));
    Open(QStringLiteral("a.rtf"));
    form->chkAll()->setChecked(true);
    bool looked = false;
    QTimer::singleShot(0, form.get(), [&] {
        looked = true;
        EXPECT_TRUE(Find("picDoing")->isVisible());
        EXPECT_FALSE(Find("fraOutput")->isVisible());
        EXPECT_FALSE(Find("cmdOK")->isEnabled());
        EXPECT_FALSE(Find("cmdCancel")->isEnabled());
        EXPECT_EQ(LabelText("lblMap"), QStringLiteral("One"));
        EXPECT_TRUE(LabelText("lblDoing").startsWith(QStringLiteral("Processing Node (")));
        EXPECT_EQ(Find<QProgressBar>("prg1")->maximum(), 2);
        EXPECT_EQ(Find<QProgressBar>("prg2")->maximum(), 200);
        QTest::keyClick(form.get(), Qt::Key_Escape);
    });
    form->cmdOK_Click();
    EXPECT_TRUE(looked);
    EXPECT_TRUE(form->isVisible()) << "the options are there again";
    EXPECT_TRUE(Find("fraOutput")->isVisible());
    EXPECT_TRUE(Find("cmdOK")->isEnabled());
    EXPECT_TRUE(Names().isEmpty());
}

TEST_F(ExportForm, EscapeGivesPagesUpToo) {
    for (int node = 0; node < 200; ++node) AddNode(first, QStringLiteral("Node %1").arg(node));
    AddSlice(QStringLiteral("Two"));
    Make(QStringLiteral("a_-1.htm"), "former");
    desktop.ExpectMessageContaining(QStringLiteral("a_-1.htm"), support::Answer::Yes);
    Open(QStringLiteral("a.htm"));
    form->chkAll()->setChecked(true);
    QTimer::singleShot(0, form.get(), [&] { QTest::keyClick(form.get(), Qt::Key_Escape); });
    form->cmdOK_Click();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(Find("cmdOK")->isEnabled());
    EXPECT_EQ(Names(), QStringList{"a_-1.htm"});
    EXPECT_EQ(Read(QStringLiteral("a_-1.htm")), QStringLiteral("former"));
}

TEST_F(ExportForm, AFailureIsToldAndTheOptionsAreThereAgain) {
    Open(QStringLiteral("gone/a.rtf"));
    desktop.ExpectMessageContaining(QStringLiteral("Path not found"));
    form->cmdOK_Click();
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in frmExport: Sub cmdOK_Click"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(Find("cmdOK")->isEnabled());
}

TEST_F(ExportForm, ABookInANodeIsShownInShort) {
    AddNode(first, QString(100000, u'x'));
    Open(QStringLiteral("a.rtf"));
    form->chkMap()->setChecked(false);
    const int width = form->width();
    int longest = 0;
    QTimer::singleShot(0, form.get(), [&] { longest = int(LabelText("lblDoing").size()); });
    desktop.ExpectLaunch(Out(QStringLiteral("a.rtf")));
    form->cmdOK_Click();
    EXPECT_GT(longest, 0);
    EXPECT_LT(longest, 300);
    EXPECT_EQ(form->width(), width);
}

TEST_F(ExportForm, EveryControlCanBeReachedByTheTabulator) {
    Open(QStringLiteral("a.rtf"));
    QStringList reached;
    QWidget *at = form->chkNodes();
    do {
        if (at->focusPolicy() & Qt::TabFocus && at->isVisible() && at->isEnabled())
            reached << at->objectName();
        at = at->nextInFocusChain();
    } while (at != form->chkNodes());
    EXPECT_THAT(reached, ::testing::ElementsAre("chkNodes", "chkDetails", "chkAll", "chkMap", "optOutput0",
                                                "optOutput1", "cmdOK", "cmdCancel"));
}

} // namespace
} // namespace output
