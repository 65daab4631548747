// A conversion and a text file that find no room leave the target as it was and no other file.

#include "document/MapSchema.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"
#include "tests/SmallDisk.h"

#include <QDir>
#include <QFileInfo>

#ifndef Q_OS_WIN

namespace {

class FullDisk : public cli::testing::CliTest {
protected:
    FullDisk() {
        document::CreateEmptyMap(Path("source.map"));
        storage::Database database = storage::OpenDatabase(Path("source.map"));
        database.Execute(
            QStringLiteral("INSERT INTO [Slices] ([Index], [Text], [xZoom], [yZoom]) VALUES (0, 's', 0, 0)"));
        database.Execute(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500) "
                           "INSERT INTO [Nodes] ([Key], [Slice]) SELECT 'key ' || i, 0 FROM n"));
    }
    QStringList Names() const { return QDir(folder_.Path()).entryList(QDir::Files | QDir::Hidden); }
    int Convert() { return Run({"convert", Path("source.map"), Path("target.map")}); }
};

} // namespace

TEST_F(FullDisk, LeavesNoTargetWhereNoneWas) {
    const QStringList before = Names();
    ASSERT_EQ(Convert(), cli::kGood) << err.toStdString();
    const qint64 needed = QFileInfo(Path("target.map")).size();
    constexpr int kSteps = 8;
    for (int step = 0; step < kSteps; ++step) {
        QFile::remove(Path("target.map"));
        const tests::SmallDisk disk(rlim_t(needed * step / kSteps));
        EXPECT_EQ(Convert(), cli::kFailed) << "at step " << step;
        EXPECT_EQ(err.count(QLatin1Char('\n')), 1) << err.toStdString();
        EXPECT_EQ(Names(), before) << "at step " << step;
    }
}

TEST_F(FullDisk, LeavesTheFormerTargetWhole) {
    support::CopyFileTo(Path("template.tpl"), Path("target.map"));
    const QByteArray former = support::ReadWholeFile(Path("target.map"));
    const QStringList before = Names();
    const tests::SmallDisk disk(rlim_t(former.size() + 4096));
    EXPECT_EQ(Convert(), cli::kFailed);
    EXPECT_EQ(support::ReadWholeFile(Path("target.map")), former);
    EXPECT_EQ(Names(), before);
}

TEST_F(FullDisk, LeavesATextFileAsItWas) {
    const auto write = [this] { return Run({"csv", Path("source.map"), Path("out.csv")}); };
    ASSERT_EQ(write(), cli::kGood) << err.toStdString();
    const QByteArray former = support::ReadWholeFile(Path("out.csv"));
    const QStringList before = Names();
    constexpr int kSteps = 4;
    for (int step = 0; step < kSteps; ++step) {
        const tests::SmallDisk disk(rlim_t(former.size() * step / kSteps));
        EXPECT_EQ(write(), cli::kFailed) << "at step " << step;
        EXPECT_TRUE(err.contains(QStringLiteral("Disk full"))) << err.toStdString();
        EXPECT_EQ(support::ReadWholeFile(Path("out.csv")), former);
        EXPECT_EQ(Names(), before) << "at step " << step;
    }
}

TEST_F(FullDisk, LeavesFormerReportsWholeAndNoOthers) {
    constexpr qint64 kRoom = 10000;
    for (const QStringList &target :
         {QStringList{"--rtf", "a.rtf"}, {"--html", "a.htm"}, {"--html", "new.htm"}}) {
        const QString path = QDir(folder_.Path()).filePath(target[1]);
        const bool isNew = target[1] == QLatin1String("new.htm");
        if (!isNew) support::CopyFileTo(Path("template.tpl"), path);
        const QStringList before = Names();
        const tests::SmallDisk disk(kRoom);
        EXPECT_EQ(Run({"report", target[0], Path("source.map"), path, "--nodes"}), cli::kFailed);
        EXPECT_TRUE(err.contains(QStringLiteral("Disk full"))) << err.toStdString();
        EXPECT_EQ(QDir(folder_.Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  before);
        EXPECT_TRUE(isNew || support::ReadWholeFile(path) == support::ReadWholeFile(Path("template.tpl")));
    }
}

// A presentation is made in memory and then written.
TEST_F(FullDisk, LeavesTheFormerPresentation) {
    const auto slides = [this](const char *name) { return Run({"slides", Path("source.map"), Path(name)}); };
    for (const char *name : {"target.pptx", "target.ppt"}) {
        ASSERT_EQ(slides(name), cli::kGood) << err.toStdString();
        const QByteArray former = support::ReadWholeFile(Path(name));
        const QStringList before = Names();
        const tests::SmallDisk disk(rlim_t(former.size() / 2));
        EXPECT_EQ(slides(name), cli::kFailed) << name;
        EXPECT_TRUE(err.contains(QStringLiteral("#61"))) << err.toStdString();
        EXPECT_EQ(Names(), before);
        EXPECT_EQ(support::ReadWholeFile(Path(name)), former);
    }
}

#endif
