#include "output/csv/TextFile.h"

#include "support/Error.h"
#include "support/Files.h"
#include "tests/output/csv/CsvTest.h"

#include <QFile>

namespace output::testing {

TEST_F(CsvTest, WriteFileThenReadFileGivesTheText) {
    for (const QString &text :
         {QString(), QStringLiteral("one\r\ntwo"), QStringLiteral("\u20AC \u05D0 \U0001F600")}) {
        WriteFile(file, text);
        EXPECT_EQ(ReadFile(file), text);
    }
}

TEST_F(CsvTest, ReadFileTellsTheEncodingByTheBytes) {
    WriteBytes("\xEF\xBB\xBFx\xC3\xA4");
    EXPECT_EQ(ReadFile(file), QStringLiteral("x\u00E4"));
    WriteBytes(QByteArray("\xFF\xFEx\0\xE4\0", 6));
    EXPECT_EQ(ReadFile(file), QStringLiteral("x\u00E4"));
    WriteBytes("x\xE4");
    EXPECT_EQ(ReadFile(file), QStringLiteral("x\u00E4"));
}

TEST_F(CsvTest, WriteFileLiftsReadOnlyForTheTimeOfTheWrite) {
    WriteBytes("old");
    QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadUser);
    WriteFile(file, QStringLiteral("new"));
    EXPECT_EQ(Bytes(), "new");
    EXPECT_TRUE(support::IsReadOnly(file));
}

TEST_F(CsvTest, FilesThatCannotBeReadOrWrittenRaise) {
    EXPECT_EQ(ErrorOf([&] { ReadFile(file); }).Number(), support::kErrFileNotFound);
    const support::Error error = ErrorOf([&] { WriteFile(MapFile("none/x.txt"), QString()); });
    EXPECT_EQ(error.Number(), support::kErrPathNotFound);
    EXPECT_TRUE(error.Source().contains(QStringLiteral("WriteFile")));
}

} // namespace output::testing
