#include "dialogs/AttachmentEdit.h"

#include "tests/dialogs/AttachTest.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace dialogs::testing {

using document::cAttachment;
using support::ReadWholeFile;

class Attachments : public AttachTest {
protected:
    void Apply(const std::vector<AttachmentEdit> &rows, const char *node = "a") {
        ApplyAttachments(*window, Node(node), rows);
    }
    QString Why(const std::vector<AttachmentEdit> &rows) {
        return WhyAttachmentsAreRefused(*window, Node(), rows);
    }
    const cAttachment &Item(int position = 1) { return Settings().Attachments().Item(position); }
    QByteArray Bytes(int position = 1) { return ReadWholeFile(Item(position).Filename); }
    // Removes the unpacked copies, as a cleaner of the temporary folder does.
    void LoseCopies() {
        for (const cAttachment &attachment : Settings().Attachments()) QFile::remove(attachment.Filename);
    }
};

TEST_F(Attachments, ApplyReplacesTheWholeSetOfTheNodeAndNothingElse) {
    const QString one = Saved("one.txt"), two = Saved("two.txt"), three = Saved("three.txt");
    Apply({{"k1", one, false}, {"k2", two, false}});
    Apply({{"k3", three, false}}, "b");
    EXPECT_EQ(AttachmentsOf(*window, Node()),
              (std::vector<AttachmentEdit>{{"k1", one, false}, {"k2", two, false}}));
    Settings().Dirty = false;
    Apply({{"k2", two, false}, {"k4", three, false}});
    EXPECT_EQ(AttachmentsOf(*window, Node()),
              (std::vector<AttachmentEdit>{{"k2", two, false}, {"k4", three, false}}));
    EXPECT_EQ(AttachmentsOf(*window, Node("b")), (std::vector<AttachmentEdit>{{"k3", three, false}}));
    EXPECT_TRUE(Settings().Dirty);
    EXPECT_TRUE(AttachmentsOf(*window, Node("c")).empty());
    Apply({});
    EXPECT_TRUE(AttachmentsOf(*window, Node()).empty());
    EXPECT_EQ(Settings().Attachments().count(), 1);
}

TEST_F(Attachments, ARowKeepsItsKeyAndANewOneGetsOne) {
    Apply({{"", Saved("one.txt"), false}});
    const QString key = Item().Key;
    EXPECT_EQ(key.size(), 38);
    Apply(AttachmentsOf(*window, Node()));
    EXPECT_EQ(Item().Key, key);
}

TEST_F(Attachments, ANodeWithoutAKeyGetsOne) {
    diagram::Node &node = Surface().Nodes().Add(0, 0, 100, 100);
    ApplyAttachments(*window, node, {{"k", Saved("one.txt"), false}});
    EXPECT_FALSE(node.Key().isEmpty());
    EXPECT_EQ(Item().Node, node.Key());
}

TEST_F(Attachments, AnEmbeddedFileIsCopiedAtOnceSoThatItsOriginalMayGo) {
    const QString file = Saved("notes.txt", "notes");
    Apply({{"k", file, true}});
    EXPECT_NE(Item().Filename, file);
    EXPECT_EQ(support::FileTitle(Item().Filename), "notes.txt");
    EXPECT_TRUE(Settings().AttachmentFolder().Holds(Item().Filename));
    EXPECT_FALSE(Settings().AttachmentFolder().Holds(file));
    ASSERT_TRUE(QFile::remove(file));
    SaveAndOpen();
    EXPECT_EQ(Bytes(), "notes");
    EXPECT_TRUE(Item().Embed);
}

TEST_F(Attachments, ALinkedFileStaysWhereItIs) {
    const QString file = Saved("notes.txt");
    Apply({{"k", file, false}});
    SaveAndOpen();
    EXPECT_EQ(Item().Filename, file);
    EXPECT_FALSE(Item().Embed);
}

TEST_F(Attachments, FilesOfOneTitleAreCopiedApart) {
    Apply({{"k1", Saved("x/notes.txt", "1"), true}, {"k2", Saved("y/notes.txt", "2"), true}});
    Apply({{"k3", Saved("z/notes.txt", "3"), true}}, "b");
    SaveAndOpen();
    for (const int i : {1, 2, 3}) EXPECT_EQ(Bytes(i), QByteArray::number(i));
}

TEST_F(Attachments, ApplyingAgainCopiesNothingAgain) {
    Apply({{"k", Saved("notes.txt"), true}});
    const QString copy = Item().Filename;
    const std::vector<AttachmentEdit> rows = AttachmentsOf(*window, Node());
    EXPECT_EQ(Why(rows), "");
    Apply(rows);
    EXPECT_EQ(Item().Filename, copy);
}

TEST_F(Attachments, WhereTheBytesWereReadFromIsKeptForARowThatStaysAsItIs) {
    Apply({{"k1", Saved("one.txt", "1"), true}, {"k2", Saved("two.txt", "2"), true}});
    SaveAndOpen();
    std::vector<AttachmentEdit> rows = AttachmentsOf(*window, Node());
    LoseCopies();
    EXPECT_EQ(Why(rows), "") << "what the former map holds doesn't stand in the way of other rows";
    rows.push_back({"k3", Saved("three.txt", "3"), true});
    Apply(rows);
    SaveAndOpen("other.map");
    for (const int i : {1, 2, 3}) EXPECT_EQ(Bytes(i), QByteArray::number(i));
}

TEST_F(Attachments, AnEmbeddedFileCanBePointedToANewPlace) {
    Apply({{"k", Saved("one.txt", "1"), true}});
    SaveAndOpen();
    std::vector<AttachmentEdit> rows = AttachmentsOf(*window, Node());
    rows[0].Filename = Saved("two.txt", "2");
    Apply(rows);
    ASSERT_TRUE(DoSave(*window));
    window = Loaded(MapFile("plan.map"));
    EXPECT_EQ(support::FileTitle(Item().Filename), "two.txt");
    EXPECT_EQ(Bytes(), "2");
}

TEST_F(Attachments, ADeletedRowOfAnEmbeddedFileIsGoneFromTheMapAtTheNextSave) {
    Apply({{"k", Saved("notes.txt", "SECRET-OF-THE-MAP"), true}});
    SaveAs(*window, MapFile("plan.map"));
    EXPECT_TRUE(ReadWholeFile(MapFile("plan.map")).contains("SECRET-OF-THE-MAP"));
    Apply({});
    ASSERT_TRUE(DoSave(*window));
    EXPECT_FALSE(ReadWholeFile(MapFile("plan.map")).contains("SECRET-OF-THE-MAP"));
    EXPECT_EQ(Cell(MapFile("plan.map"), "SELECT COUNT(*) FROM [Attachments]").toInt(), 0);
}

TEST_F(Attachments, OneWithoutAFileIsSavedAndComesBackEmbeddedOrNot) {
    for (const bool embed : {false, true}) {
        const std::vector<AttachmentEdit> rows{{"k", "", embed}};
        EXPECT_EQ(Why(rows), "");
        Apply(rows);
        SaveAndOpen();
        EXPECT_TRUE(Cell(MapFile("plan.map"), "SELECT [Data] FROM [Attachments]").toByteArray().isEmpty());
        ASSERT_EQ(Settings().Attachments().count(), 1);
        EXPECT_EQ(Item().Filename, "");
        EXPECT_EQ(Item().Embed, embed);
        ASSERT_TRUE(DoSave(*window)) << "and so does every later save";
    }
}

TEST_F(Attachments, AFileThatVanishesBeforeOkIsRefusedAndNothingIsChanged) {
    Apply({{"k", Saved("kept.txt"), false}});
    const QString gone = Saved("gone.txt");
    ASSERT_TRUE(QFile::remove(gone));
    const std::vector<AttachmentEdit> rows{{"k2", gone, true}};
    EXPECT_EQ(Why(rows),
              "'gone.txt' is not there, so that it can't be embedded. Point to it in its new place, "
              "or take the tick from Embed.");
    EXPECT_EQ(Why({{"k2", gone, false}}), "");
    // Between the check and the copying.
    EXPECT_EQ(document::testing::ErrorOf([&] { Apply(rows); }).Number(), support::kErrFileNotFound);
    EXPECT_EQ(AttachmentsOf(*window, Node()).size(), 1u);
    EXPECT_EQ(Item().Key, "k");
}

TEST_F(Attachments, AnOriginalThatVanishesBeforeTheSaveIsNotMissed) {
    const QString file = Saved("notes.txt", "notes");
    Apply({{"k", file, true}});
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_NO_THROW(SaveAs(*window, MapFile("plan.map")));
    window->clsSettings().Attachments().Clear();
    EXPECT_EQ(Cell(MapFile("plan.map"), "SELECT [Data] FROM [Attachments]").toByteArray(), "notes");
}

TEST_F(Attachments, AnUnpackedCopyThatWasChangedOutsideIsUnsavedWorkUntilItIsSaved) {
    Apply({{"k", Saved("notes.txt", "notes"), true}});
    EXPECT_TRUE(document::HasUnsavedWork(*window));
    SaveAndOpen();
    EXPECT_FALSE(document::HasUnsavedWork(*window));
    support::AtomicFile file(Item().Filename); // as editors write
    file.Write("notes and more");
    file.Commit();
    EXPECT_TRUE(document::HasUnsavedWork(*window));
    ASSERT_TRUE(DoSave(*window));
    EXPECT_FALSE(document::HasUnsavedWork(*window));
    window = Loaded(MapFile("plan.map"));
    EXPECT_EQ(Bytes(), "notes and more");
}

TEST_F(Attachments, AFolderCanBeLinkedAndNotEmbedded) {
    QDir().mkdir(MapFile("folder"));
    EXPECT_EQ(Why({{"k", MapFile("folder"), true}}), "'folder' is a folder. Only files can be embedded.");
    const std::vector<AttachmentEdit> linked{{"k", MapFile("folder"), false}};
    EXPECT_EQ(Why(linked), "");
    Apply(linked);
    SaveAndOpen();
    EXPECT_EQ(Item().Filename, MapFile("folder"));
}

#ifdef Q_OS_UNIX
TEST_F(Attachments, WhatNobodyMayReadIsRefused) {
    if (geteuid() == 0) { // whom no file refuses
        EXPECT_EQ(Why({{"k", "/dev/null", true}}), "'null' can't be read.");
        return;
    }
    const QString file = Saved("closed.txt");
    QFile::setPermissions(file, {});
    EXPECT_EQ(Why({{"k", file, true}}), "'closed.txt' can't be read.");
}
#endif

TEST_F(Attachments, AboveTheLimitEmbeddingIsRefusedWithBothFigures) {
    const QString large = Sparse("large.bin", 950'000'000);
    EXPECT_EQ(
        Why({{"k", large, true}}),
        "'large.bin' has 950.0 MB. A Map can hold files of up to 900.0 MB; without the tick at Embed it "
        "stays where it is and is linked.");
    EXPECT_EQ(Why({{"k", large, false}}), "");
    EXPECT_EQ(Why({{"k", Sparse("limit.bin", kLargestEmbedded), true}}), "");
    const QString above = Why({{"k", Sparse("above.bin", kLargestEmbedded + 1), true}});
    EXPECT_TRUE(above.contains("900,000,001 bytes") || above.contains("900000001 bytes"))
        << above.toStdString();
    EXPECT_TRUE(above.contains("900,000,000 bytes") || above.contains("900000000 bytes"))
        << above.toStdString();
}

TEST_F(Attachments, AnEmbeddedFileThatHasGrownTooLargeIsToldAtOk) {
    Apply({{"k", Saved("grows.bin"), true}});
    ASSERT_TRUE(QFile(Item().Filename).resize(kLargestEmbedded + 1));
    EXPECT_TRUE(Why(AttachmentsOf(*window, Node())).contains("grows.bin"));
}

TEST_F(Attachments, TheOnlyCopyIsNotLostWithTheTick) {
    Apply({{"k", Saved("notes.txt"), true}});
    std::vector<AttachmentEdit> rows = AttachmentsOf(*window, Node());
    rows[0].Embed = false;
    EXPECT_EQ(Why(rows),
              "'notes.txt' is kept in this Map alone. Save it elsewhere and point to it there before "
              "you take the tick from Embed.");
    rows[0].Filename = Saved("elsewhere.txt");
    EXPECT_EQ(Why(rows), "");
}

TEST_F(Attachments, NamesWithQuotesAndLineEndsComeBack) {
    const QStringList names{"O'Brien \"x\".txt", "two\nlines\r\n.txt", "';DROP TABLE Nodes;--.txt",
                            "100%.txt"};
    std::vector<AttachmentEdit> rows;
    for (const QString &name : names) {
        rows.push_back({"e" + name, Saved(name, name.toUtf8()), true});
        rows.push_back({"l" + name, Saved(name, name.toUtf8()), false});
    }
    EXPECT_EQ(Why(rows), "");
    Apply(rows);
    SaveAndOpen();
    ASSERT_EQ(Settings().Attachments().count(), 2 * int(names.size()));
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(Bytes(2 * i + 1), names[i].toUtf8());
        EXPECT_EQ(Item(2 * i + 2).Filename, MapFile(names[i]));
    }
    EXPECT_EQ(Why({{"k", MapFile("gone\n'x'.txt"), true}}).section(' ', 0, 1), "'gone 'x'.txt'");
}

TEST_F(Attachments, WhatStandsThereIsTold) {
    const QString file = Saved("files/notes.txt", "12345");
    Settings().SetDatabase(MapFile("plan.map"));
    EXPECT_EQ(LookAt(*window, "").state, FileState::NotChosen);
    EXPECT_EQ(LookAt(*window, file).state, FileState::Found);
    EXPECT_EQ(LookAt(*window, file).size, 5);
    EXPECT_EQ(LookAt(*window, MapFile("files")).state, FileState::Folder);
    EXPECT_EQ(LookAt(*window, "/gone/notes.txt").state, FileState::NotFound);
    EXPECT_EQ(LookAt(*window, "\\\\server\\share\\notes.txt").state, FileState::OnNetwork);
    const AttachedFile moved = LookAt(*window, "/former/place/files/notes.txt");
    EXPECT_EQ(moved.state, FileState::FoundBeside);
    EXPECT_EQ(moved.path, file);
    EXPECT_EQ(moved.size, 5);
}

TEST_F(Attachments, AFileBelowTheMapsFolderIsEmbeddedFromWhereItIsNow) {
    Saved("files/notes.txt", "notes");
    Settings().SetDatabase(MapFile("plan.map"));
    const std::vector<AttachmentEdit> rows{{"k", "C:\\former\\files\\notes.txt", true}};
    EXPECT_EQ(Why(rows), "");
    Apply(rows);
    EXPECT_EQ(Bytes(), "notes");
}

} // namespace dialogs::testing
