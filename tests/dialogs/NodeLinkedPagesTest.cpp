// The pages of the node dialog for what hangs on the node by its key, in the form as a whole.
#include "dialogs/AttachmentsPage.h"
#include "dialogs/frmAttachment.h"
#include "dialogs/HyperlinkPage.h"
#include "tests/dialogs/NodeDialogTest.h"

#include <QCheckBox>
#include <QListWidget>
#include <QTreeWidget>

namespace dialogs::testing {

class NodeLinkedPages : public NodeDialogTest {
protected:
    document::clsfrmMain &Settings() { return window.clsSettings(); }
    QString Hyper() { return document::GetTag(*node, document::tags::kHyper); }
    HyperlinkPage &Hyperlink() { return *form->findChild<HyperlinkPage *>(); }
    AttachmentsPage &Attachments() { return *form->findChild<AttachmentsPage *>(); }
    QString Saved(const QString &name) {
        const QString path = MapFile(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("notes");
        return path;
    }
    void AddAttachment(const QString &file, bool embed) {
        desktop.ExpectForm<cfrmAttachment>([=](cfrmAttachment &attachment) {
            attachment.Filename = file;
            attachment.bEmbed = embed;
            attachment.Cancel = false;
            return true;
        });
        Attachments().cmdAttNew_Click();
    }
};

TEST_F(NodeLinkedPages, StandBehindTheOthersUnderTheirCaptions) {
    Open(*node);
    EXPECT_EQ(form->SSIndexTab1()->tabText(kHyperlinkPage), QStringLiteral("Hyperlink"));
    EXPECT_EQ(form->SSIndexTab1()->tabText(kAttachmentsPage), QStringLiteral("Attachments"));
    EXPECT_EQ(form->SSIndexTab1()->widget(kHyperlinkPage), &Hyperlink());
    EXPECT_EQ(form->SSIndexTab1()->widget(kAttachmentsPage), &Attachments());
}

TEST_F(NodeLinkedPages, OkWritesBothUnderTheNodesKeyInTheStepOfUndoOfTheRest) {
    Open(*node);
    Hyperlink().chkHyperlink().setChecked(true);
    Hyperlink().chkHyperlink_Click();
    AddAttachment(Saved(QStringLiteral("notes.txt")), true);
    Click("OKButton");
    ASSERT_EQ(Settings().Hyperlinks().count(), 1);
    EXPECT_EQ(Settings().Hyperlinks().Item(1).Node, node->Key());
    EXPECT_EQ(Settings().Hyperlinks().Item(1).Slice, 1);
    ASSERT_EQ(Settings().Attachments().count(), 1);
    EXPECT_EQ(Settings().Attachments().Item(1).Node, node->Key());
    EXPECT_TRUE(Settings().Attachments().Item(1).Embed);
    EXPECT_EQ(Hyper(), QStringLiteral("Yes"));
    flow.Undo();
    EXPECT_EQ(Hyper(), QString());
    EXPECT_FALSE(flow.CanUndo());
}

TEST_F(NodeLinkedPages, CancelLosesWhatWasAddedSinceTheLastApply) {
    Open(*node);
    AddAttachment(Saved(QStringLiteral("one.txt")), false);
    Click("cmdApply");
    AddAttachment(Saved(QStringLiteral("two.txt")), false);
    Click("CancelButton");
    ASSERT_EQ(Settings().Attachments().count(), 1);
    EXPECT_TRUE(Settings().Attachments().Item(1).Filename.endsWith(QStringLiteral("one.txt")));
}

TEST_F(NodeLinkedPages, AnEmbeddedFileThatIsNotThereKeepsTheFormAndChangesNothing) {
    Open(*node);
    AddAttachment(QStringLiteral("/none/of/this.txt"), true);
    Choose("cboShape", 2);
    desktop.ExpectMessageContaining(QStringLiteral("this.txt"));
    Click("OKButton");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->SSIndexTab1()->currentIndex(), kAttachmentsPage);
    EXPECT_NE(node->Shape(), 2);
    EXPECT_EQ(Settings().Attachments().count(), 0);
}

// A copy is made at the first Apply; the original may go then.
TEST_F(NodeLinkedPages, ASecondApplyKeepsAnEmbeddedFileWhoseOriginalIsGone) {
    Open(*node);
    const QString file = Saved(QStringLiteral("notes.txt"));
    AddAttachment(file, true);
    Click("cmdApply");
    ASSERT_TRUE(QFile::remove(file));
    Click("OKButton");
    ASSERT_EQ(Settings().Attachments().count(), 1);
    EXPECT_TRUE(QFile::exists(Settings().Attachments().Item(1).Filename));
}

TEST_F(NodeLinkedPages, WithoutTheTickTheHyperlinkGoesAndTheTagSaysNo) {
    Open(*node);
    Hyperlink().chkHyperlink().setChecked(true);
    Hyperlink().chkHyperlink_Click();
    Click("cmdApply");
    ASSERT_EQ(Settings().Hyperlinks().count(), 1);
    Hyperlink().chkHyperlink().setChecked(false);
    Hyperlink().chkHyperlink_Click();
    Click("OKButton");
    EXPECT_EQ(Settings().Hyperlinks().count(), 0);
    EXPECT_EQ(Hyper(), QStringLiteral("No"));
}

} // namespace dialogs::testing
