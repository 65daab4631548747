// The looks at memory within a slice.
#include "document/MemoryGuard.h"

#include "diagram/model/Surface.h"
#include "support/Error.h"
#include "support/OtherDoor.h"
#include "tests/document/MapTest.h"

namespace document::testing {

namespace {

// Has memory enough for `good` looks, then too little; counts the looks.
class CountingMemory : public support::MemoryProbe {
public:
    support::MemoryReading Read() override {
        return ++looks > good ? support::MemoryReading{20, std::nullopt}
                              : support::MemoryReading{21, std::nullopt};
    }
    int looks = 0, good = 1000;
};

class MemoryGuardTest : public MapTest {
protected:
    // A map with a slice of that many nodes and another with one.
    QString Map(int nodes) {
        const QString path = EmptyMap(QStringLiteral("m.map"));
        QStringList statements{InsertSlice(0, QStringLiteral("a")), InsertSlice(1, QStringLiteral("b"))};
        for (int i = 0; i < nodes; ++i) statements << InsertNode(QStringLiteral("n%1").arg(i));
        statements << InsertNode(QStringLiteral("other"), 1);
        Run(path, QStringLiteral("BEGIN;") + statements.join(u';') + QStringLiteral(";COMMIT"));
        return path;
    }
    MapWindow &Load(int nodes) {
        window.clsSettings().SetDatabase(Map(nodes));
        window.clsSettings().Dirty = true;
        if (memory.good < 1000) desktop.ExpectMessage(QStringLiteral("Low on memory"));
        DoLoad(window);
        return window;
    }
    int NodesOf(int slice) { return window.AddFlow1()[slice].Nodes().Count(); }
    // What a load that ended for want of memory leaves.
    void ExpectEnded() {
        EXPECT_TRUE(window.clsSettings().Dirty);
        EXPECT_EQ(window.caption, "Untitled - Velmora");
        EXPECT_EQ(window.statuses.back(), "");
        EXPECT_EQ(window.progress.back(), 0);
        EXPECT_EQ(window.pointers.back(), pointer::kNormal);
        EXPECT_EQ(window.calls.back(), "LoadCombos");
        for (const int index : window.AddFlow1().Indices()) EXPECT_FALSE(window.AddFlow1()[index].Loading());
    }

    CountingMemory memory;
    support::Desktop outside = support::WithDoor(desktop.Get(), memory);
    MemoryWindow window{outside};
};

} // namespace

TEST_F(MemoryGuardTest, ALoadLooksBeforeEachSliceAndThenAtTheFirstAndEach512thNode) {
    Load(600);
    EXPECT_EQ(memory.looks, 4) << "two slices, nodes 1 and 513";
    EXPECT_EQ(NodesOf(0), 600);
    EXPECT_EQ(NodesOf(1), 1);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(MemoryGuardTest, AtTheFirstNodeTheSliceIsThereWithoutNodes) {
    memory.good = 1;
    Load(600);
    EXPECT_EQ(NodesOf(0), 0);
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    EXPECT_EQ(window.TabStrip().TabCaption(0), "a");
    ExpectEnded();
}

TEST_F(MemoryGuardTest, WithinASliceTheNodesReadSoFarStay) {
    memory.good = 2;
    Load(600);
    EXPECT_EQ(NodesOf(0), 512);
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    ExpectEnded();
}

TEST_F(MemoryGuardTest, TheSecondSliceIsNotBegunWhenMemoryIsShortBeforeIt) {
    memory.good = 3;
    Load(600);
    EXPECT_EQ(NodesOf(0), 600);
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    ExpectEnded();
}

} // namespace document::testing
