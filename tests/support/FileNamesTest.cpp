#include "support/FileNames.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace support {

namespace {

QString Posix(const QString &title) { return SafeFileName(title, NameRules::Posix); }
QString Windows(const QString &title) { return SafeFileName(title, NameRules::Windows); }

} // namespace

TEST(SafeFileName, GoodTitlesComeBackAsTheyAre) {
    for (const char *title :
         {"notes.txt", "a b.c.d", "no ending", ".hidden", "...", "\xc3\xa4\xe4\xb8\xad.pdf"}) {
        const QString name = QString::fromUtf8(title);
        EXPECT_EQ(Posix(name), name);
        EXPECT_EQ(Windows(name), name.endsWith('.') ? name + '_' : name);
    }
    EXPECT_EQ(Posix("What? \"A:B\" <1>|*.txt"), "What? \"A:B\" <1>|*.txt");
}

TEST(SafeFileName, NoTitleLeavesItsFolder) {
    EXPECT_EQ(Posix(""), "_");
    EXPECT_EQ(Posix("."), "_.");
    EXPECT_EQ(Posix(".."), "_..");
    EXPECT_EQ(Windows(".."), "_.._");
    EXPECT_EQ(Posix("../../etc/passwd"), ".._.._etc_passwd");
    EXPECT_EQ(Windows("..\\C:\\x"), ".._C__x");
    EXPECT_EQ(Posix(QString::fromLatin1("a\0b\n\x7f", 5)), "a_b__");
}

TEST(SafeFileName, NamesThatWindowsKeepsGetASignInFront) {
    EXPECT_EQ(Windows("CON"), "_CON");
    EXPECT_EQ(Windows("nul.txt"), "_nul.txt");
    EXPECT_EQ(Windows("Com1.tar.gz"), "_Com1.tar.gz");
    EXPECT_EQ(Windows("Lpt\u00b2"), "_Lpt\u00b2");
    EXPECT_EQ(Windows("console.txt"), "console.txt");
    EXPECT_EQ(Windows("com10"), "com10");
    EXPECT_EQ(Windows("end. "), "end. _");
    EXPECT_EQ(Windows("What? \"A:B\" <1>|*.txt"), "What_ _A_B_ _1___.txt");
}

TEST(SafeFileName, LongTitlesAreCutAndKeepTheirEnding) {
    const QString letters = Posix(QString(5000, 'x') + ".docx");
    EXPECT_EQ(letters.size(), 200);
    EXPECT_TRUE(letters.endsWith("x.docx"));
    const QString pictures = Posix(QString::fromUtf8("\xf0\x9f\x98\x80").repeated(300) + ".png");
    EXPECT_LE(pictures.toUtf8().size(), 200);
    EXPECT_GE(pictures.toUtf8().size(), 196);
    EXPECT_TRUE(pictures.endsWith(".png"));
    EXPECT_EQ(QString::fromUtf8(pictures.toUtf8()), pictures) << "no half of a character";
    EXPECT_EQ(Posix("a." + QString(5000, 'y')).size(), 200);
}

TEST(SafeFileName, EveryNameOfThisPlatformCanBeMade) {
    const QTemporaryDir folder;
    for (const QString &title :
         {QString(), QString(".."), QString(300, u'\u4e2d'), QString("a/b\\c:d\n.txt")}) {
        QFile file(folder.filePath(SafeFileName(title)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << title.toStdString();
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 4);
}

} // namespace support
