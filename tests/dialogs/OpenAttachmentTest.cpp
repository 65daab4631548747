#include "dialogs/OpenAttachment.h"

#include "dialogs/AttachmentEdit.h"
#include "document/LastPath.h"
#include "tests/dialogs/AttachTest.h"

namespace dialogs::testing {

using support::Answer;

class Opening : public AttachTest {
protected:
    void ExpectQuestion(Answer answer) { desktop.ExpectMessageContaining("can run as a program", answer); }
};

TEST_F(Opening, ADocumentOpensUnasked) {
    const QString file = Saved("notes.txt");
    desktop.ExpectLaunch(file);
    EXPECT_TRUE(OpenAttachment(*window, file));
    EXPECT_TRUE(desktop.Messages().empty());
}

TEST_F(Opening, WhatCanRunIsAskedAboutFirstAndEnterMeansNo) {
    for (const char *name : {"a.exe", "b.bat", "c.desktop", "d.sh", "e.js", "f.lnk"}) {
        ExpectQuestion(Answer::No);
        EXPECT_FALSE(OpenAttachment(*window, Saved(QLatin1String(name)))) << name;
        EXPECT_TRUE(
            desktop.Messages().back().text.startsWith(QStringLiteral("'%1' ").arg(QLatin1String(name))));
        EXPECT_EQ(desktop.Messages().back().enter, support::EnterPresses::No);
        EXPECT_EQ(desktop.Messages().back().buttons, support::Buttons::YesNo);
    }
    for (const char *bytes : {"MZ", "\177ELF", "#!/bin/sh"}) {
        ExpectQuestion(Answer::No);
        EXPECT_FALSE(OpenAttachment(*window, Saved("picture.png", bytes))) << bytes;
    }
    EXPECT_TRUE(desktop.launcher.launched.isEmpty());
}

TEST_F(Opening, AUserWhoTrustsItGetsIt) {
    const QString file = Saved("tool.sh");
    ExpectQuestion(Answer::Yes);
    desktop.ExpectLaunch(file);
    EXPECT_TRUE(OpenAttachment(*window, file));
}

TEST_F(Opening, AnEmbeddedProgramOfAStrangersMapIsAskedAboutToo) {
    ApplyAttachments(*window, Node(),
                     {{"k", Saved("tool.exe", "MZ"), true}, {"l", Saved("plan.txt", "#!x"), true}});
    SaveAndOpen();
    for (const int i : {1, 2}) {
        ExpectQuestion(Answer::No);
        EXPECT_FALSE(OpenAttachment(*window, Settings().Attachments().Item(i).Filename));
    }
}

TEST_F(Opening, TheQuestionCantBeWrittenByTheName) {
    ExpectQuestion(Answer::No);
    OpenAttachment(*window, Saved(QString::fromUtf8("safe\n\nreally\u202etxt.exe")));
    EXPECT_TRUE(desktop.Messages().back().text.startsWith("'safe really txt.exe' can run"))
        << desktop.Messages().back().text.toStdString();
}

TEST_F(Opening, AMissingFileIsToldAndNeverAnAddress) {
    for (const char *gone : {"https://example.org/", "/gone/notes.txt", "gone.exe", ""}) {
        const QString path = QLatin1String(gone);
        desktop.ExpectLaunch(path, false); // the door for files
        desktop.ExpectMessage("Cannot Launch Program! \r\nCan not find the following file\r\n'" + path + "'");
        EXPECT_FALSE(OpenAttachment(*window, path));
    }
}

TEST_F(Opening, OneThatMovedWithTheMapIsFound) {
    const QString file = Saved("files/notes.txt"), program = Saved("files/tool.exe");
    Settings().SetDatabase(MapFile("plan.map"));
    desktop.ExpectLaunch(file);
    EXPECT_TRUE(OpenAttachment(*window, "/former/files/notes.txt"));
    ExpectQuestion(Answer::No);
    EXPECT_FALSE(OpenAttachment(*window, "/former/files/tool.exe"));
}

TEST_F(Opening, AFileCanBeSavedElsewhere) {
    document::SetLastPath("/last/");
    const QString source = Saved("notes.txt", "notes"), target = MapFile("copy.txt");
    desktop.ExpectSaveFile(target);
    EXPECT_TRUE(SaveAttachmentAs(*window, source, nullptr));
    EXPECT_EQ(support::ReadWholeFile(target), "notes");
    EXPECT_EQ(support::ReadWholeFile(source), "notes");
    EXPECT_EQ(desktop.dialogs.shownFiles.back().startFolder, "/last/notes.txt");
    EXPECT_EQ(desktop.dialogs.shownFiles.back().filter, "All Files|*.*");
    desktop.ExpectSaveFile("");
    EXPECT_FALSE(SaveAttachmentAs(*window, source, nullptr));
    desktop.ExpectSaveFile(source); // onto itself
    EXPECT_TRUE(SaveAttachmentAs(*window, source, nullptr));
    EXPECT_EQ(support::ReadWholeFile(source), "notes");
    desktop.ExpectSaveFile(target);
    EXPECT_EQ(document::testing::ErrorOf([&] { SaveAttachmentAs(*window, "/gone", nullptr); }).Number(),
              support::kErrFileNotFound);
    EXPECT_EQ(support::ReadWholeFile(target), "notes");
}

} // namespace dialogs::testing
