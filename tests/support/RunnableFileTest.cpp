#include "support/RunnableFile.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

using namespace support;

namespace {

class RunnableFile : public ::testing::Test {
protected:
    QString Saved(const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    QTemporaryDir folder;
};

} // namespace

TEST_F(RunnableFile, NamesOfProgramsScriptsAndShortcutsAreKnown) {
    for (const char *name : {"a.exe",
                             "A.EXE",
                             "b.com",
                             "c.bat",
                             "d.cmd",
                             "e.ps1",
                             "f.vbs",
                             "g.js",
                             "h.jar",
                             "i.lnk",
                             "j.desktop",
                             "k.sh",
                             "l.msi",
                             "m.url",
                             "report.pdf.exe",
                             "trail.exe.",
                             "trail.exe ",
                             "trail.exe. . ",
                             "stream.txt:b.exe",
                             "n.exe::$DATA",
                             "C:\\x\\o.exe",
                             "/p/q.AppImage",
                             "a\nb.exe",
                             ".exe"})
        EXPECT_TRUE(IsNamedLikeAProgram(QString::fromLatin1(name))) << name;
    for (const char *name : {"", "a", "exe", "a.txt", "a.exe.txt", "a.pdf", "a.png", "b.map", "a.xlsx",
                             "a.zip", "C:\\a.exe\\b.txt", "/a.exe/b.txt", "a.", "."})
        EXPECT_FALSE(IsNamedLikeAProgram(QString::fromLatin1(name))) << name;
    // A name that is written from right to left in part.
    EXPECT_TRUE(IsNamedLikeAProgram(QString::fromUtf8("photo\u202egnp.exe")));
}

TEST_F(RunnableFile, ContentTellsWhateverTheName) {
    const std::vector<QByteArray> programs{
        "MZ\x90",
        "\x7f"
        "ELF\x02",
        "#!/bin/sh\n",
        QByteArray("\x4c\x00\x00\x00\x01\x14\x02\x00\x00", 9),
        "[Desktop Entry]\nExec=x",
        "# a comment\n\n[Desktop Entry]\n",
        "\xef\xbb\xbf[InternetShortcut]\r\nURL=file:///x",
        "\xca\xfe\xba\xbe\x00",
        QByteArray("PK\x03\x04").leftJustified(30, 'x') + "META-INF/MANIFEST.MF",
    };
    for (const QByteArray &bytes : programs)
        EXPECT_TRUE(CanRun(Saved("a.txt", bytes))) << bytes.toHex().data();
    const std::vector<QByteArray> others{"",
                                         "M",
                                         "plain text",
                                         "%PDF-1.7",
                                         "# a heading\n\ntext",
                                         "\x89PNG\r\n",
                                         "# only a comment",
                                         QByteArray("PK\x03\x04").leftJustified(30, 'x') +
                                             "[Content_Types].xml"};
    for (const QByteArray &bytes : others)
        EXPECT_FALSE(CanRun(Saved("a.txt", bytes))) << bytes.toHex().data();
}

TEST_F(RunnableFile, TheRightToExecuteTells) {
    const QString file = Saved("plan.txt", "text");
    EXPECT_FALSE(CanRun(file));
#ifdef Q_OS_UNIX
    QFile::setPermissions(file, QFile::permissions(file) | QFile::ExeOwner);
    EXPECT_TRUE(CanRun(file));
#endif
}

TEST_F(RunnableFile, ALinkIsWhatItLeadsTo) {
    const QString link = folder.filePath("notes.txt");
    ASSERT_TRUE(QFile::link(Saved("tool.bat", "echo"), link));
    EXPECT_TRUE(CanRun(link));
}

TEST_F(RunnableFile, FoldersDontRunAndWhatIsGoneGoesByItsName) {
    EXPECT_FALSE(CanRun(folder.path()));
    EXPECT_FALSE(CanRun(folder.filePath("gone.txt")));
    EXPECT_TRUE(CanRun(folder.filePath("gone.exe")));
    EXPECT_FALSE(CanRun(QString()));
}
