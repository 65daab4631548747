// The pointer and the percentages that a window shows while a map is loaded or saved.
#include "document/BusyWindow.h"

#include "settings/clsMRU.h"
#include "storage/Database.h"
#include "support/Error.h"
#include "tests/document/MapTest.h"

#include <gmock/gmock.h>

namespace document::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

// Writes down which pointer it shows together with each status.
class Watched : public MemoryWindow {
public:
    using MemoryWindow::MemoryWindow;
    void DoStatus(const QString &text) override {
        MemoryWindow::DoStatus(text);
        shown.append(QStringLiteral("%1 %2").arg(pointers.empty() ? -1 : pointers.back()).arg(text));
    }
    QStringList shown;
};

class BusyWindowTest : public MapTest {
protected:
    // Slices with the node and link counts given.
    QString Map(std::initializer_list<std::pair<int, int>> slices) {
        const QString path = EmptyMap(QStringLiteral("busy.map"));
        QStringList statements;
        int slice = 0;
        for (const auto &[nodes, links] : slices) {
            statements << InsertSlice(slice, QStringLiteral("s"));
            const auto key = [slice](int node) { return QStringLiteral("%1.%2").arg(slice).arg(node); };
            for (int i = 0; i < nodes; ++i) statements << InsertNode(key(i), slice);
            for (int i = 0; i < links; ++i)
                statements << InsertLink(QStringLiteral("l") + key(i), key(i), key(i), slice);
            ++slice;
        }
        Run(path, statements.join(u';'));
        return path;
    }
    long LoadInto(MapWindow &window, const QString &path) {
        window.clsSettings().SetDatabase(path);
        return ErrorOf([&] { DoLoad(window); }).Number();
    }
    QString RecentFile() { return settings::clsMRU(desktop.registry).File(1); }
};

// `shown` are statuses, each with the pointer in front, as Watched writes them down.
void ExpectHourglassThroughout(const QStringList &shown) {
    ASSERT_GT(shown.size(), 2);
    for (const QString &status : shown)
        EXPECT_TRUE(status.startsWith(QStringLiteral("%1 ").arg(pointer::kHourglass)))
            << status.toStdString();
}

} // namespace

TEST_F(BusyWindowTest, ALoadShowsTheHourglassFromItsFirstStatusToItsLast) {
    Watched window(desktop.Get());
    EXPECT_EQ(LoadInto(window, Map({{1, 1}})), 0);
    ExpectHourglassThroughout(window.shown);
    EXPECT_THAT(window.pointers, ElementsAre(pointer::kHourglass, pointer::kNormal));
}

TEST_F(BusyWindowTest, ALoadThatFailsGivesThePointerBackAndEmptiesStatusAndBar) {
    const QString path = Map({{2, 0}, {1, 0}});
    Run(path, QStringLiteral("UPDATE [Nodes] SET [Width]=1e30 WHERE [Slice]=1"));
    Watched window(desktop.Get());
    EXPECT_NE(LoadInto(window, path), 0);
    EXPECT_THAT(window.pointers, ElementsAre(pointer::kHourglass, pointer::kNormal));
    EXPECT_EQ(window.statuses.back(), "");
    EXPECT_EQ(window.progress.back(), 0);
}

TEST_F(BusyWindowTest, ALoadWithoutMemoryGivesThePointerBack) {
    desktop.memory.reading = {20, std::nullopt};
    desktop.ExpectMessage(QStringLiteral("Low on memory"));
    Watched window(desktop.Get());
    EXPECT_EQ(LoadInto(window, Map({{1, 0}})), 0);
    EXPECT_THAT(window.pointers, ElementsAre(pointer::kHourglass, pointer::kNormal));
}

TEST_F(BusyWindowTest, AFileThatDoesNotOpenLeavesThePointerAlone) {
    Watched window(desktop.Get());
    EXPECT_EQ(LoadInto(window, MapFile(QStringLiteral("none.map"))), storage::kErrFileNotFound);
    EXPECT_TRUE(window.pointers.empty());
}

TEST_F(BusyWindowTest, ASaveShowsTheHourglassUntilTheFileIsWritten) {
    Watched window(desktop.Get());
    window.AddFlow1()[0].Nodes().Add(0, 0, 100, 100);
    SaveAs(window, MapFile(QStringLiteral("saved.map")));
    EXPECT_EQ(window.pointers.front(), pointer::kHourglass);
    EXPECT_EQ(window.pointers.back(), pointer::kNormal);
    const qsizetype optimizing =
        window.shown.indexOf(QStringLiteral("%1 Optimizing File...").arg(pointer::kHourglass));
    ASSERT_GE(optimizing, 0);
    ExpectHourglassThroughout(window.shown.first(optimizing));
}

TEST_F(BusyWindowTest, ASaveThatFailsGivesThePointerBackAndEmptiesStatusAndBar) {
    Watched window(desktop.Get());
    window.AddFlow1()[0].Nodes().Add(0, 0, 100, 100);
    QFile::remove(ProgramFile(QStringLiteral("template.tpl")));
    window.clsSettings().SetDatabase(MapFile(QStringLiteral("saved.map")));
    EXPECT_NE(ErrorOf([&] { DoSave(window); }).Number(), 0);
    EXPECT_THAT(window.pointers, ElementsAre(pointer::kHourglass, pointer::kNormal));
    EXPECT_EQ(window.statuses.back(), "");
    EXPECT_EQ(window.progress.back(), 0);
}

TEST_F(BusyWindowTest, ALoadTellsTheShareOfRowsThatItHasPassedForNodesAndForLinks) {
    MemoryWindow window(desktop.Get());
    EXPECT_EQ(LoadInto(window, Map({{4, 2}, {3, 0}})), 0);
    EXPECT_THAT(window.progress, ElementsAre(0, 25, 50, 75, 0, 50, 0, 33, 66, 0));
}

// Nodes, and then the same nodes with the links that begin at them.
TEST_F(BusyWindowTest, ASaveTellsTheShareOfNodesThatItHasWrittenForNodesAndForLinks) {
    MemoryWindow window(desktop.Get());
    window.AddFlow1().Load(1);
    window.TabStrip().SetTabCount(2);
    for (int i = 0; i < 4; ++i) window.AddFlow1()[0].Nodes().Add(float(i) * 200, 0, 100, 100);
    for (int i = 0; i < 3; ++i) window.AddFlow1()[1].Nodes().Add(float(i) * 200, 0, 100, 100);
    SaveAs(window, MapFile(QStringLiteral("saved.map")));
    EXPECT_THAT(window.progress, ElementsAre(25, 50, 75, 100, 25, 50, 75, 100, 33, 66, 100, 33, 66, 100, 0));
}

TEST_F(BusyWindowTest, TheBarIsToldOnceForEachPercentage) {
    MemoryWindow window(desktop.Get());
    Progress progress(window, 1000);
    for (std::size_t done = 0; done <= 1000; ++done) progress.Show(done);
    std::vector<int> each(101);
    for (int percent = 0; percent <= 100; ++percent) each[std::size_t(percent)] = percent;
    EXPECT_THAT(window.progress, ElementsAreArray(each));
    Progress(window, 0).Show(0);
    EXPECT_EQ(window.progress.back(), 0);
}

TEST_F(BusyWindowTest, ALoadMakesTheMapTheMostRecentFileAndOneThatFailsDoesNot) {
    const QString good = Map({{1, 0}});
    const QString other = EmptyMap(QStringLiteral("other.map"));
    MemoryWindow window(desktop.Get());
    EXPECT_EQ(LoadInto(window, good), 0);
    EXPECT_EQ(RecentFile(), good);
    EXPECT_EQ(LoadInto(window, other), 0);
    EXPECT_EQ(RecentFile(), other);
    EXPECT_EQ(settings::clsMRU(desktop.registry).File(2), good);
    EXPECT_EQ(LoadInto(window, good), 0);
    EXPECT_EQ(RecentFile(), good);
    EXPECT_EQ(settings::clsMRU(desktop.registry).File(2), other);
    Run(other, QStringLiteral("DROP TABLE [Hyperlinks]"));
    EXPECT_NE(LoadInto(window, other), 0);
    EXPECT_EQ(RecentFile(), good);
}

} // namespace document::testing
