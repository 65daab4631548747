// A save that is ended from outside, at whatever moment, leaves a whole map behind.
#include "document/MapSchema.h"
#include "storage/Database.h"
#include "tests/Paths.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

// A map with so many rows that writing it takes a while.
void WriteLargeMap(const QString &path) {
    document::CreateEmptyMap(path);
    storage::Database database = storage::OpenForBuilding(path);
    database.BeginTrans();
    database.Execute(
        QStringLiteral("INSERT INTO [Slices] ([Index], [Text], [xZoom], [yZoom]) VALUES (0, 's', 100, 100)"));
    database.Execute(
        QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 8000) "
                       "INSERT INTO [Nodes] ([Key], [Slice], [Left], [Description]) "
                       "SELECT 'key ' || i, 0, i, 'a text' FROM n"));
    database.CommitTrans();
}

int CountNodes(const QString &path) {
    return storage::OpenDatabase(path).OpenRecordset(QStringLiteral("SELECT COUNT(*) FROM [Nodes]")).Long(0);
}

// The program with an empty map beside it, in a folder of its own.
QString CopyProgram(const QString &folder) {
    const QString program = folder + QStringLiteral("/velmora-cli");
    EXPECT_TRUE(QFile::copy(tests::Program(QStringLiteral("velmora-cli")), program));
    document::WriteTemplate(folder + QStringLiteral("/template.tpl"), {}, {});
    return program;
}

// Ends the program after the time, unless it was faster.
void ConvertAndKill(const QString &program, const QString &source, const QString &target, int milliseconds) {
    QProcess process;
    process.start(program, {QStringLiteral("convert"), source, target});
    ASSERT_TRUE(process.waitForStarted());
    if (process.waitForFinished(milliseconds)) return;
    process.kill();
    process.waitForFinished();
}

} // namespace

TEST(KilledSave, LeavesTheOldMapOrTheNewOneWhole) {
    constexpr int kSteps = 12;
    constexpr int kLongEnough = 120000;
    const QTemporaryDir folder;
    const QString program = CopyProgram(folder.path());
    const QString source = folder.filePath(QStringLiteral("large.map")),
                  target = folder.filePath(QStringLiteral("target.map"));
    WriteLargeMap(source);
    QElapsedTimer clock;
    clock.start();
    ConvertAndKill(program, source, target, kLongEnough);
    const int whole = static_cast<int>(clock.elapsed());
    ASSERT_EQ(CountNodes(target), 8000);
    for (int step = 1; step <= kSteps; ++step) {
        storage::OpenDatabase(target).Execute(QStringLiteral("DELETE FROM [Nodes] WHERE [Left] > 10"));
        ConvertAndKill(program, source, target, whole * step / (kSteps + 1));
        const int nodes = CountNodes(target);
        EXPECT_TRUE(nodes == 10 || nodes == 8000) << nodes << " nodes after step " << step;
    }
    // The next save takes what the killed ones left away, here and in the temporary folder.
    ConvertAndKill(program, source, target, kLongEnough);
    EXPECT_EQ(QDir(folder.path()).entryList({QStringLiteral(".*.new")}, QDir::Files | QDir::Hidden),
              QStringList());
}
