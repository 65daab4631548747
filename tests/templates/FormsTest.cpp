#include "dialogs/clsCompactPath.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "templates/forms/frmRB.h"
#include "templates/forms/frmSaveAsTemplate.h"
#include "templates/TemplateDb.h"
#include "tests/templates/TemplatesTest.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace templates::testing {

namespace {

using settings::clsRB;

class Question : public TemplatesTest {
protected:
    void Open(bool force = false) {
        prompt.Force = force;
        form.emplace(prompt, nullptr);
        form->show();
    }
    clsRB prompt;
    std::optional<frmRB> form;
};

class SaveForm : public TemplatesTest {
protected:
    void Open() {
        window->TabStrip().SetCaption(QStringLiteral("First Slice"));
        form.emplace(SaveAsTemplateArgument{*window, Flow(), [this] { ++barsFilled; }}, nullptr);
        form->resize(700, 200);
        form->show();
    }
    void Press(QPushButton *button) { QTest::mouseClick(button, Qt::LeftButton); }
    QString Output() const { return InTemplates(QStringLiteral("First Slice.TEM")); }

    int barsFilled = 0;
    std::optional<frmSaveAsTemplate> form;
};

const QString kAskForIcon = QStringLiteral("Please select an icon for display purposes.");

} // namespace

TEST_F(Question, HasTheProgramsTitleAndTheTermForASlice) {
    Open();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Velmora"));
    EXPECT_EQ(
        form->lblText()->text(),
        QStringLiteral("Select NEW if you are not sure and then enter any filename. If you select UPDATE "
                       "the text from the new template will overlay the text on your screen."));
    EXPECT_EQ(form->chkRemember()->text(), QStringLiteral("&Don't Show me again"));
    EXPECT_EQ(form->cmdNew()->text(), QStringLiteral("&New"));
    EXPECT_EQ(form->cmdUpdate()->text(), QStringLiteral("&Update"));
    EXPECT_EQ(form->cmdCancel()->text(), QStringLiteral("&Cancel"));
    EXPECT_FALSE(form->chkRemember()->isChecked());
}

TEST_F(Question, ForcedItOpensTicked) {
    Open(true);
    EXPECT_TRUE(form->chkRemember()->isChecked());
}

TEST_F(Question, EachButtonGivesItsAnswerAndCloses) {
    const std::tuple<QPushButton *(frmRB::*)() const, int, bool> cases[] = {
        {&frmRB::cmdNew, clsRB::kNew, true},
        {&frmRB::cmdUpdate, clsRB::kUpdate, true},
        {&frmRB::cmdCancel, clsRB::kCancel, false}};
    for (const auto &[button, choice, saved] : cases) {
        Open();
        form->chkRemember()->setChecked(true);
        QTest::mouseClick(((*form).*button)(), Qt::LeftButton);
        EXPECT_EQ(prompt.Choice, choice);
        EXPECT_EQ(prompt.SaveValue, saved);
        EXPECT_FALSE(form->isVisible());
    }
}

TEST_F(Question, EnterIsNewAndEscapeIsCancel) {
    Open();
    QTest::keyClick(&*form, Qt::Key_Return);
    EXPECT_EQ(prompt.Choice, clsRB::kNew);
    EXPECT_FALSE(prompt.SaveValue);
    Open();
    form->chkRemember()->setChecked(true);
    QTest::keyClick(&*form, Qt::Key_Escape);
    EXPECT_EQ(prompt.Choice, clsRB::kCancel);
    EXPECT_FALSE(prompt.SaveValue);
}

TEST_F(Question, AStoredAnswerAsksNothing) {
    desktop.ExpectForm<clsRB>([](clsRB &argument) {
        frmRB shown(argument, nullptr);
        shown.chkRemember()->setChecked(true);
        shown.cmdUpdate()->click();
        return true;
    });
    EXPECT_EQ(clsRB().DisplayPrompt(false), clsRB::kUpdate);
    EXPECT_EQ(clsRB().DisplayPrompt(false), clsRB::kUpdate) << "not asked again";
}

TEST_F(SaveForm, OpensWithTheTabsNameAndTheFirstIcon) {
    const QString icon = Write(InTemplates(QStringLiteral("b.ico")), Icon());
    Open();
    EXPECT_EQ(form->lblOutputPath()->Tag(), Output());
    EXPECT_EQ(form->lblIconPath()->Tag(), icon);
    EXPECT_EQ(form->findChild<QLabel *>(QStringLiteral("lblOutput"))->text(), QStringLiteral("Output Path:"));
    EXPECT_EQ(form->findChild<QLabel *>(QStringLiteral("lblIcon"))->text(), QStringLiteral("Icon:"));
    EXPECT_EQ(form->cmdCancel()->text(), QStringLiteral("Cancel"));
    EXPECT_TRUE(form->lblOutputPath()->text().endsWith(QStringLiteral("First Slice.TEM")));
}

TEST_F(SaveForm, OkSavesFillsTheBarsAndCloses) {
    AddNode(QStringLiteral("Idea"));
    Write(InTemplates(QStringLiteral("b.ico")), Icon(qRgb(0, 200, 0)));
    Open();
    Press(form->cmdOK());
    EXPECT_EQ(ReadImage(Output()), Icon(qRgb(0, 200, 0)));
    EXPECT_EQ(barsFilled, 1);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
    EXPECT_TRUE(window->pointers.front() == document::pointer::kHourglass);
}

TEST_F(SaveForm, AFileThatIsThereIsReplacedWithoutAQuestion) {
    Write(InTemplates(QStringLiteral("b.ico")), Icon());
    Write(Output(), "former");
    Open();
    Press(form->cmdOK());
    EXPECT_TRUE(ReadMap(Output()));
    EXPECT_EQ(support::ReadWholeFile(Output() + QStringLiteral(".bak")), QByteArray("former"));
}

TEST_F(SaveForm, WithoutAnIconOkAsksForOneFirst) {
    const QString icon = Write(MapFile(QStringLiteral("other.ico")), Icon());
    Open();
    EXPECT_EQ(form->lblIconPath()->Tag(), QString());
    desktop.ExpectMessage(kAskForIcon);
    desktop.ExpectOpenFile(icon);
    Press(form->cmdOK());
    EXPECT_EQ(desktop.Messages().back().icon, support::Icon::Information);
    const auto &shown = desktop.dialogs.shownFiles.at(0);
    EXPECT_EQ(shown.filter, QStringLiteral("Icon Files|*.ico"));
    EXPECT_EQ(shown.startFolder, InTemplates(QString()));
    EXPECT_EQ(shown.flags & ~support::fileflags::kExplorer, 4100);
    EXPECT_EQ(ReadImage(Output()), Icon());
}

TEST_F(SaveForm, CancellingTheIconDialogWritesNothingAndStaysOpen) {
    Open();
    desktop.ExpectMessage(kAskForIcon);
    desktop.ExpectOpenFile(QString());
    Press(form->cmdOK());
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->cmdOK()->isEnabled());
    EXPECT_EQ(FilesIn(InTemplates(QString())), QStringList());
    EXPECT_EQ(Flow().Nodes().Count(), 0) << "nothing was put on the slice";
}

TEST_F(SaveForm, ThePathIsChosenInASaveDialog) {
    Write(InTemplates(QStringLiteral("b.ico")), Icon());
    Open();
    desktop.ExpectSaveFile(MapFile(QStringLiteral("Mine.TEM")));
    Press(form->cmdPath());
    const auto &shown = desktop.dialogs.shownFiles.at(0);
    EXPECT_TRUE(shown.save);
    EXPECT_EQ(shown.filter, QStringLiteral("Template Files|*.TEM"));
    EXPECT_EQ(shown.defaultExtension, QStringLiteral("TEM"));
    EXPECT_EQ(shown.startFolder, InTemplates(QString()));
    EXPECT_EQ(shown.flags & ~support::fileflags::kExplorer, 2054);
    desktop.ExpectSaveFile(QString()); // cancelled: the path stays
    Press(form->cmdPath());
    Press(form->cmdOK());
    EXPECT_TRUE(ReadMap(MapFile(QStringLiteral("Mine.TEM"))));
    EXPECT_FALSE(support::FileExists(Output()));
}

TEST_F(SaveForm, WithoutAPathOkAsksForOne) {
    Write(InTemplates(QStringLiteral("b.ico")), Icon());
    QFile::setPermissions(ProgramFile(QStringLiteral("Templates")), QFile::ReadOwner | QFile::ExeOwner);
    const tests::EnvironmentVariable noFolder(
        "XDG_DATA_HOME", QFile::encodeName(Write(MapFile(QStringLiteral("file")), "no folder")));
    desktop.ExpectMessageContaining(QStringLiteral("Path not found")); // neither folder can be written
    Open();
    EXPECT_EQ(form->lblOutputPath()->Tag(), QString());
    const tests::EnvironmentVariable folder("XDG_DATA_HOME",
                                            QFile::encodeName(MapFile(QStringLiteral("data"))));
    desktop.ExpectMessage(QStringLiteral("Please select an output file."));
    desktop.ExpectSaveFile(QString());
    Press(form->cmdOK());
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->cmdOK()->isEnabled());
}

TEST_F(SaveForm, TheSliceItselfCanBeTheIcon) {
    AddNode(QStringLiteral("Idea"));
    Open();
    Press(form->cmdDrawnIcon());
    EXPECT_EQ(form->lblIconPath()->text(), QStringLiteral("From the drawing"));
    Press(form->cmdOK());
    EXPECT_TRUE(IsIcon(ReadImage(Output()).value()));
    form.reset();
    EXPECT_EQ(FilesIn(TempFolder()), QStringList());
}

TEST_F(SaveForm, AfterAnErrorTheButtonsStayOffUntilItIsClosed) {
    const QString icon = Write(InTemplates(QStringLiteral("b.ico")), Icon());
    Open();
    QFile::remove(icon);
    desktop.ExpectMessageContaining(icon);
    Press(form->cmdOK());
    EXPECT_EQ(desktop.Messages().back().title, QStringLiteral("Error in frmSaveAsTemplate: Sub cmdOK_Click"));
    for (const QPushButton *button : {form->cmdOK(), form->cmdCancel(), form->cmdPath(), form->cmdIcon()})
        EXPECT_FALSE(button->isEnabled());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(window->pointers.back(), document::pointer::kNormal);
    EXPECT_EQ(barsFilled, 0);
    QTest::keyClick(&*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(SaveForm, WhereTheProgramsFolderMayNotBeWrittenTheUsersOwnIsProposed) {
    Write(InTemplates(QStringLiteral("b.ico")), Icon());
    QFile::setPermissions(ProgramFile(QStringLiteral("Templates")), QFile::ReadOwner | QFile::ExeOwner);
    Open();
    EXPECT_EQ(form->lblOutputPath()->Tag(),
              settings::OwnTemplatesFolder() + QStringLiteral("First Slice.TEM"));
    Press(form->cmdOK());
    EXPECT_TRUE(ReadMap(settings::OwnTemplatesFolder() + QStringLiteral("First Slice.TEM")));
}

TEST_F(SaveForm, IsReachedByKeysInReadingOrder) {
    Open();
    QList<QWidget *> order;
    QWidget *at = form->cmdPath();
    do {
        if (at->focusPolicy() != Qt::NoFocus) order << at;
        at = at->nextInFocusChain();
    } while (at != form->cmdPath());
    order.removeAll(&*form);
    EXPECT_EQ(order, QList<QWidget *>({form->cmdPath(), form->cmdIcon(), form->cmdDrawnIcon(), form->cmdOK(),
                                       form->cmdCancel()}));
}

} // namespace templates::testing
