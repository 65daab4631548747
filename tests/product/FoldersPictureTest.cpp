// The picture of the folders in docs/ is the one that the program draws.
#include "support/AtomicFile.h"
#include "tests/Paths.h"

#include <gtest/gtest.h>
#include <QRegularExpression>

namespace {

// Numbers differ with the fonts of a machine.
QString WithoutNumbers(const QString &path) {
    static const QRegularExpression numbers(QStringLiteral("-?[0-9][0-9.]*"));
    return QString::fromUtf8(support::ReadWholeFile(path)).remove(numbers);
}

} // namespace

TEST(FoldersPicture, IsTheOneThatWasBuilt) {
    const QString kept = WithoutNumbers(tests::Source(QStringLiteral("docs/pictures/folders.svg")));
    EXPECT_TRUE(kept.contains(QStringLiteral("mainwindow")));
    EXPECT_EQ(kept, WithoutNumbers(QStringLiteral(VELMORA_BUILD "/docs/folders.svg")))
        << "copy docs/folders.svg of the build folder to docs/pictures";
}
