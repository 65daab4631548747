#include "output/powerpoint/form/frmPowerPoint.h"

#include "document/MapWindow.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "tests/output/powerpoint/PptxTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace powerpoint::testing {

namespace {

class Form : public PptxTest {
protected:
    Form() {
        settings::ProductTerms terms = settings::Terms();
        terms.SLICE = QStringLiteral("Sheet"), terms.NODE = QStringLiteral("Idea");
        settings::SetTerms(terms);
        AddSlice(QStringLiteral("Second"));
        AddNode(0, 0, QStringLiteral("idea"));
    }
    frmPowerPoint &Open(const QString &name = QStringLiteral("out.pptx")) {
        argument.emplace(PowerPointArgument{*window, MapFile(name)});
        form = std::make_unique<frmPowerPoint>(*argument, nullptr);
        form->show();
        return *form;
    }
    QPushButton &Button(const char *name) {
        auto *button = form->findChild<QPushButton *>(QLatin1String(name));
        if (!button) throw std::runtime_error(name);
        return *button;
    }
    Parts PartsOfTarget() { return PartsOf(support::ReadWholeFile(argument->Filename)); }

    std::optional<PowerPointArgument> argument;
    std::unique_ptr<frmPowerPoint> form;
};

} // namespace

TEST_F(Form, ShowsItsWordsWithTheTermAndTheNormalPointer) {
    frmPowerPoint &shown = Open();
    EXPECT_EQ(shown.windowTitle(), "PowerPoint Export Options");
    EXPECT_EQ(shown.chkAll()->text(), "Export All Sheet's");
    EXPECT_EQ(shown.chkTitle()->text(), "Include title in slide");
    EXPECT_EQ(Button("cmdCancel").text(), "&Cancel");
    EXPECT_TRUE(Button("cmdOK").isDefault());
    ASSERT_FALSE(window->pointers.empty());
    EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
}

TEST_F(Form, NothingIsTickedAtFirst) {
    frmPowerPoint &shown = Open();
    for (const QCheckBox *tick : {shown.chkAll(), shown.chkTitle(), shown.chkShapes()})
        EXPECT_FALSE(tick->isChecked()) << qPrintable(tick->objectName());
    EXPECT_FALSE(shown.prg1()->isVisible());
}

TEST_F(Form, OkWritesTheCurrentSliceOpensTheFileAndCloses) {
    frmPowerPoint &shown = Open();
    desktop.ExpectLaunch(argument->Filename);
    QTest::keyClick(&shown, Qt::Key_Return);
    EXPECT_FALSE(shown.isVisible());
    EXPECT_EQ(shown.result(), QDialog::Accepted);
    const Parts made = PartsOfTarget();
    EXPECT_TRUE(made.count(SlideName(1)));
    EXPECT_FALSE(made.count(SlideName(2)));
    EXPECT_FALSE(made.at(SlideName(1)).contains("type=\"title\""));
    EXPECT_TRUE(made.at(SlideName(1)).contains("p:pic"));
}

TEST_F(Form, TheTicksDecideWhatIsWritten) {
    frmPowerPoint &shown = Open();
    for (QCheckBox *tick : {shown.chkAll(), shown.chkTitle(), shown.chkShapes()}) tick->click();
    desktop.ExpectLaunch(argument->Filename);
    Button("cmdOK").click();
    const Parts made = PartsOfTarget();
    EXPECT_TRUE(made.count(SlideName(2)));
    EXPECT_TRUE(made.at(SlideName(1)).contains("type=\"title\""));
    EXPECT_FALSE(made.at(SlideName(1)).contains("p:pic"));
}

TEST_F(Form, TheTicksAreRememberedByOkAlone) {
    Open().chkTitle()->click();
    Button("cmdCancel").click();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(LoadChoice(), FormChoice());
    Open().chkTitle()->click();
    form->chkShapes()->click();
    desktop.ExpectLaunch(argument->Filename);
    Button("cmdOK").click();
    EXPECT_EQ(LoadChoice(), (FormChoice{false, true, true}));
    EXPECT_TRUE(Open().chkTitle()->isChecked());
    EXPECT_FALSE(form->chkAll()->isChecked());
}

TEST_F(Form, ABinaryFileHasNoShapesAndTheirTickIsKept) {
    SaveChoice({false, false, true});
    frmPowerPoint &shown = Open(QStringLiteral("out.PPT"));
    EXPECT_FALSE(shown.chkShapes()->isEnabled());
    EXPECT_FALSE(shown.chkShapes()->isChecked());
    desktop.ExpectLaunch(argument->Filename);
    Button("cmdOK").click();
    EXPECT_TRUE(support::ReadWholeFile(argument->Filename).startsWith("\xD0\xCF\x11\xE0"));
    EXPECT_TRUE(LoadChoice().shapes);
}

TEST_F(Form, AFailedWriteIsToldAndNothingIsOpened) {
    Open(QStringLiteral("nowhere/out.pptx"));
    desktop.ExpectMessageContaining(QStringLiteral("(Error #76)"));
    Button("cmdOK").click();
    EXPECT_EQ(desktop.Messages().back().title, "Error in frmPowerPoint: Sub CreatePowerpoint");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Rejected);
}

class GivenUp : public Form, public ::testing::WithParamInterface<const char *> {};
INSTANTIATE_TEST_SUITE_P(Forms, GivenUp, ::testing::Values("out.pptx", "out.ppt"));

TEST_P(GivenUp, EscapeGivesUpWhileSlidesAreMade) {
    frmPowerPoint &shown = Open(QLatin1String(GetParam()));
    shown.chkAll()->setChecked(true);
    QObject::connect(shown.prg1(), &QProgressBar::valueChanged, &shown, [&](int value) {
        EXPECT_TRUE(shown.prg1()->isVisible());
        EXPECT_FALSE(shown.chkAll()->isEnabled());
        EXPECT_FALSE(Button("cmdOK").isEnabled());
        EXPECT_EQ(shown.findChild<QLabel *>("lblDoing")->text(), "Sheet 1 of 2");
        EXPECT_EQ(value, 1);
        QTest::keyClick(&shown, Qt::Key_Escape);
        EXPECT_TRUE(shown.isVisible());
    });
    Button("cmdOK").click();
    EXPECT_FALSE(shown.isVisible());
    EXPECT_EQ(shown.result(), QDialog::Rejected);
    EXPECT_TRUE(MapFiles().isEmpty());
}

TEST_F(Form, EscapeBeforeClosesWithoutAFile) {
    frmPowerPoint &shown = Open();
    QTest::keyClick(&shown, Qt::Key_Escape);
    EXPECT_FALSE(shown.isVisible());
    EXPECT_TRUE(MapFiles().isEmpty());
}

TEST_F(Form, TabFollowsTheReadingOrder) {
    frmPowerPoint &shown = Open();
    QStringList order;
    for (const QWidget *at = shown.chkAll(); order.size() < 5; at = at->nextInFocusChain())
        if (at->focusPolicy() & Qt::TabFocus && at->isVisible()) order << at->objectName();
    EXPECT_EQ(order, (QStringList{"chkAll", "chkTitle", "chkShapes", "cmdOK", "cmdCancel"}));
}

} // namespace powerpoint::testing
