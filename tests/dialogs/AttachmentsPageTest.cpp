#include "dialogs/AttachmentsPage.h"

#include "dialogs/clsCompactPath.h"
#include "dialogs/frmAttachment.h"
#include "document/LastPath.h"
#include "tests/dialogs/AttachTest.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace dialogs::testing {

class AttachmentsPageTest : public AttachTest {
protected:
    AttachmentsPage &Page() {
        page = std::make_unique<AttachmentsPage>(*window, Node(), nullptr);
        page->Load();
        return *page;
    }
    QTreeWidgetItem &Row(int row = 0) { return *page->lvwAttachments().topLevelItem(row); }
    QStringList Texts(int row = 0) {
        QStringList texts;
        for (int column = 0; column < 4; ++column) texts << Row(row).text(column);
        return texts;
    }
    void Select(int row) { page->lvwAttachments().setCurrentItem(&Row(row)); }
    QPushButton &Button(const char *name) { return *page->findChild<QPushButton *>(QLatin1String(name)); }
    void Press(const char *name) { Button(name).click(); }
    // What the form for one attachment is answered with; what it was given comes back.
    void AnswerForm(const QString &file, bool embed) {
        desktop.ExpectForm<cfrmAttachment>([=, this](cfrmAttachment &form) {
            given = {QString(), form.Filename, form.bEmbed};
            form.Filename = file;
            form.bEmbed = embed;
            form.Cancel = false;
            return true;
        });
    }
    AttachmentEdit given;
    std::unique_ptr<AttachmentsPage> page;
};

TEST_F(AttachmentsPageTest, ShowsTheNodesAttachmentsWithSizeAndWhetherTheFileIsThere) {
    const QString file = Saved("notes.txt", QByteArray(1500, 'x'));
    Attach(file, true);
    Attach("/gone.txt", false);
    Attach(Saved("b.txt"), false, "b");
    Attach("", true);
    Page();
    ASSERT_EQ(page->lvwAttachments().topLevelItemCount(), 3);
    EXPECT_EQ(Texts(0), QStringList({file, "Yes", "1.5 kB", "Found"}));
    EXPECT_EQ(Texts(1), QStringList({"/gone.txt", "No", "", "Not found"}));
    EXPECT_EQ(Texts(2), QStringList({"", "Yes", "", "None chosen"}));
    EXPECT_EQ(page->Rows(), AttachmentsOf(*window, Node()));
    const QTreeWidgetItem &header = *page->lvwAttachments().headerItem();
    EXPECT_EQ(header.text(0), "Filename");
    EXPECT_EQ(header.text(1), "Embed");
}

TEST_F(AttachmentsPageTest, AFileThatMovedWithTheMapIsShownWithItsPlace) {
    const QString file = Saved("files/notes.txt", "12345");
    Settings().SetDatabase(MapFile("plan.map"));
    Attach("/former/files/notes.txt", false);
    Page();
    EXPECT_EQ(Texts(), QStringList({"/former/files/notes.txt", "No", "5 bytes", "Moved"}));
    EXPECT_TRUE(Row().toolTip(3).contains(file));
}

TEST_F(AttachmentsPageTest, NewAddsARowUnlessItIsCancelled) {
    Page();
    desktop.ExpectForm<cfrmAttachment>([](cfrmAttachment &form) {
        EXPECT_TRUE(form.Cancel);
        EXPECT_EQ(form.Filename, "");
        return false;
    });
    Press("cmdAttNew");
    EXPECT_TRUE(page->Rows().empty());
    const QString file = Saved("notes.txt");
    AnswerForm(file, true);
    Press("cmdAttNew");
    ASSERT_EQ(page->Rows().size(), 1u);
    EXPECT_EQ(page->Rows()[0].Filename, file);
    EXPECT_TRUE(page->Rows()[0].Embed);
    EXPECT_EQ(page->Rows()[0].Key.size(), 38);
    EXPECT_EQ(Settings().Attachments().count(), 0) << "nothing changes before the apply";
    page.reset(); // Cancel
    Page();
    EXPECT_TRUE(page->Rows().empty());
}

TEST_F(AttachmentsPageTest, OneConfirmedWithoutAFileIsARowAndIsStored) {
    Page();
    AnswerForm("", false);
    Press("cmdAttNew");
    ApplyAttachments(*window, Node(), page->Rows());
    SaveAndOpen();
    ASSERT_EQ(Settings().Attachments().count(), 1);
    EXPECT_EQ(Settings().Attachments().Item(1).Filename, "");
}

TEST_F(AttachmentsPageTest, EditShowsTheRowAndWritesItBack) {
    Attach("/one.txt", true, "a", "k");
    Page();
    Select(0);
    AnswerForm("/two.txt", false);
    Press("cmdAttEdit");
    EXPECT_EQ(given, (AttachmentEdit{"", "/one.txt", true}));
    EXPECT_EQ(page->Rows(), (std::vector<AttachmentEdit>{{"k", "/two.txt", false}}));
    desktop.ExpectForm<cfrmAttachment>(); // cancelled
    Press("cmdAttEdit");
    EXPECT_EQ(page->Rows(), (std::vector<AttachmentEdit>{{"k", "/two.txt", false}}));
    EXPECT_EQ(Settings().Attachments().Item(1).Filename, "/one.txt");
}

TEST_F(AttachmentsPageTest, DeleteTakesTheRowWithoutAsking) {
    Attach("/one.txt", true);
    Attach("/two.txt", true);
    Page();
    Select(0);
    Press("cmdAttDelete");
    ASSERT_EQ(page->Rows().size(), 1u);
    EXPECT_EQ(page->Rows()[0].Filename, "/two.txt");
    Select(0);
    page->show();
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
    page->lvwAttachments().setFocus();
    QTest::keyClick(&page->lvwAttachments(), Qt::Key_Delete);
    EXPECT_TRUE(page->Rows().empty());
    EXPECT_EQ(Settings().Attachments().count(), 2);
}

TEST_F(AttachmentsPageTest, ButtonsForARowWaitForOne) {
    Attach("/one.txt", true);
    Page();
    const std::vector<const char *> names{"cmdAttEdit", "cmdAttDelete", "cmdAttOpen", "cmdAttSaveAs",
                                          "cmdAttPointTo"};
    for (const char *name : names) EXPECT_FALSE(Button(name).isEnabled()) << name;
    EXPECT_TRUE(Button("cmdAttNew").isEnabled());
    Select(0);
    for (const char *name : names) EXPECT_TRUE(Button(name).isEnabled()) << name;
    Press("cmdAttDelete");
    for (const char *name : names) EXPECT_FALSE(Button(name).isEnabled()) << name;
}

TEST_F(AttachmentsPageTest, OpenAndADoubleClickOpenTheFile) {
    const QString file = Saved("notes.txt");
    Attach("/first.txt", false);
    Attach(file, false);
    Page().show();
    Select(1);
    desktop.ExpectLaunch(file);
    Press("cmdAttOpen");
    desktop.ExpectLaunch(file);
    const QTreeWidget &list = page->lvwAttachments();
    const QPoint at = list.visualItemRect(&Row(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(desktop.launcher.launched, QStringList({file, file}));
}

TEST_F(AttachmentsPageTest, TheEmbeddedCopyOpensWithNoExtraStep) {
    ApplyAttachments(*window, Node(), {{"k", Saved("notes.txt", "notes"), true}});
    SaveAndOpen();
    Page();
    Select(0);
    const QString copy = page->Rows()[0].Filename;
    EXPECT_EQ(support::ReadWholeFile(copy), "notes");
    desktop.ExpectLaunch(copy);
    Press("cmdAttOpen");
}

TEST_F(AttachmentsPageTest, AFileIsSavedElsewhereAndPointedToItsNewPlace) {
    Attach(Saved("notes.txt", "notes"), true, "a", "k");
    Page();
    Select(0);
    desktop.ExpectSaveFile(MapFile("copy.txt"));
    Press("cmdAttSaveAs");
    EXPECT_EQ(support::ReadWholeFile(MapFile("copy.txt")), "notes");
    desktop.ExpectOpenFile("");
    Press("cmdAttPointTo");
    EXPECT_EQ(page->Rows()[0].Filename, MapFile("notes.txt"));
    desktop.ExpectOpenFile(MapFile("copy.txt"));
    Press("cmdAttPointTo");
    EXPECT_EQ(page->Rows(), (std::vector<AttachmentEdit>{{"k", MapFile("copy.txt"), true}}));
}

TEST_F(AttachmentsPageTest, ASaveThatFailsIsTold) {
    Attach("/gone.txt", false);
    Page();
    Select(0);
    desktop.ExpectSaveFile(MapFile("copy.txt"));
    desktop.ExpectMessageContaining("File not found: /gone.txt");
    Press("cmdAttSaveAs");
}

TEST_F(AttachmentsPageTest, AfterAnApplyTheRowsShowTheCopies) {
    Page();
    AnswerForm(Saved("notes.txt"), true);
    Press("cmdAttNew");
    ApplyAttachments(*window, Node(), page->Rows());
    page->Load();
    EXPECT_TRUE(Settings().AttachmentFolder().Holds(page->Rows()[0].Filename));
    QFile::remove(MapFile("notes.txt"));
    EXPECT_EQ(WhyAttachmentsAreRefused(*window, Node(), page->Rows()), "");
}

class AttachmentForm : public AttachTest {
protected:
    frmAttachment &Form() {
        form = std::make_unique<frmAttachment>(attachment, nullptr);
        return *form;
    }
    // As when it comes up.
    void Show() {
        Form().show();
        QTest::qWait(0);
    }
    PathLabel &Label() { return dynamic_cast<PathLabel &>(*form->findChild<QLabel *>("lblFilename")); }
    QCheckBox &Embed() { return *form->findChild<QCheckBox *>("chkEmbed"); }
    QPushButton &Button(const char *name) { return *form->findChild<QPushButton *>(QLatin1String(name)); }

    cfrmAttachment attachment{desktop.Get()};
    std::unique_ptr<frmAttachment> form;
};

TEST_F(AttachmentForm, ANewOneOpensStraightIntoTheFileDialogOnceOnly) {
    document::SetLastPath("/last/");
    desktop.ExpectOpenFile("/home/x/notes.txt");
    Show();
    EXPECT_EQ(form->windowTitle(), "Attachments");
    EXPECT_EQ(Label().Tag(), "/home/x/notes.txt");
    const support::testing::ShownFileDialog &dialog = desktop.dialogs.shownFiles.back();
    EXPECT_EQ(dialog.filter, "All Files|*.*");
    EXPECT_EQ(dialog.startFolder, "/last/");
    EXPECT_EQ(dialog.flags, 4100 | support::fileflags::kExplorer);
    form->hide();
    clsCompactPath().CompactPathIntoControl("", Label());
    form->show();
    QTest::qWait(0);
    EXPECT_EQ(desktop.dialogs.shownFiles.size(), 1u);
}

TEST_F(AttachmentForm, OneWithAFileShowsIt) {
    attachment.Filename = "/home/x/notes.txt";
    attachment.bEmbed = true;
    Show();
    EXPECT_EQ(Label().Tag(), "/home/x/notes.txt");
    EXPECT_TRUE(Embed().isChecked());
    EXPECT_TRUE(desktop.dialogs.shownFiles.empty());
    desktop.ExpectOpenFile("");
    Button("cmdBrowseLink").click();
    EXPECT_EQ(Label().Tag(), "/home/x/notes.txt");
    desktop.ExpectOpenFile("/home/x/other.txt");
    Button("cmdBrowseLink").click();
    Embed().click();
    EXPECT_EQ(attachment.Filename, "/home/x/notes.txt");
    Button("cmdOK").click();
    EXPECT_FALSE(attachment.Cancel);
    EXPECT_EQ(attachment.Filename, "/home/x/other.txt");
    EXPECT_FALSE(attachment.bEmbed);
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(AttachmentForm, CancelChangesNothing) {
    attachment.Filename = "/home/x/notes.txt";
    for (const bool escape : {false, true}) {
        Show();
        Embed().click();
        if (escape)
            QTest::keyClick(form.get(), Qt::Key_Escape);
        else
            Button("cmdCancel").click();
        EXPECT_FALSE(form->isVisible());
        EXPECT_TRUE(attachment.Cancel);
        EXPECT_FALSE(attachment.bEmbed);
    }
    EXPECT_EQ(Button("cmdCancel").text(), "&Cancel");
    EXPECT_EQ(Embed().text(), "&Embed");
    EXPECT_EQ(form->findChild<QLabel *>("lblFilenameCap")->text(), "Filename:");
}

TEST_F(AttachmentForm, AnEmptyPathIsAcceptedByEnter) {
    desktop.ExpectOpenFile("");
    Show();
    Embed().setFocus();
    QTest::keyClick(&Embed(), Qt::Key_Return);
    EXPECT_FALSE(attachment.Cancel);
    EXPECT_EQ(attachment.Filename, "");
}

} // namespace dialogs::testing
