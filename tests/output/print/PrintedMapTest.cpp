#include "output/print/PrintedMap.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Stacking.h"
#include "document/MemoryWindow.h"
#include "settings/Settings.h"
#include "tests/output/print/PrintTest.h"

#include <QDir>

namespace print::testing {

namespace {

class PrintedMapTest : public ::testing::Test {
protected:
    void AddSlice(const QString &caption) {
        const int tabs = slices_++ == 0 ? 1 : window.TabStrip().TabCount() + 1;
        window.TabStrip().SetTabCount(tabs);
        window.TabStrip().SetTheTab(tabs - 1);
        window.TabStrip().SetCaption(caption);
        if (!window.AddFlow1().Exists(tabs - 1)) window.AddFlow1().Load(tabs - 1);
        AddBox(window.AddFlow1()[tabs - 1], 0, 0, 10, 10, caption);
    }

    support::testing::ScriptedDesktop desktop;
    document::MemoryWindow window{desktop.Get(), document::EmptyPools{}};

private:
    int slices_ = 0;
};

TEST(CopyOf, HasTheSameContent) {
    const support::testing::ScriptedDesktop desktop;
    diagram::Surface surface;
    diagram::Node &a = AddBox(surface, 0, 0, 20, 10, QStringLiteral("A"));
    diagram::Node &gone = AddBox(surface, 5, 5, 20, 10);
    diagram::Node &b = AddBox(surface, 50, 50, 20, 10, QStringLiteral("B"));
    surface.Remove(gone);
    diagram::Link &link = a.Links().Add(b);
    link.SetText(QStringLiteral("to"));
    a.BringToFront();
    const auto copy = CopyOf(surface);
    EXPECT_EQ(diagram::SaveBytes(*copy), diagram::SaveBytes(surface));
    EXPECT_EQ(copy->Stacking().Order().back()->Id(), a.Id());
}

TEST(CopyOf, IsNotReachedByLaterChanges) {
    const support::testing::ScriptedDesktop desktop;
    diagram::Surface surface;
    surface.Screen().SetShowsBothTexts(true);
    AddBox(surface, 0, 0, 20, 10, QStringLiteral("A"));
    const auto copy = CopyOf(surface);
    surface.Nodes().Item(1).SetText(QStringLiteral("B"));
    surface.Nodes().Clear();
    EXPECT_EQ(copy->Nodes().Item(1).Text(), QStringLiteral("A"));
    EXPECT_TRUE(copy->Screen().ShowsBothTexts());
}

TEST_F(PrintedMapTest, HasTheNamesAndTheTime) {
    AddSlice(QStringLiteral("One"));
    EXPECT_EQ(CopyMap(window, PageSetup(), 0).title, settings::ReplaceTerms(QStringLiteral("@MAP")));
    window.clsSettings().SetDatabase(QDir::temp().filePath(QStringLiteral("Our plan.v2.map")));
    const PrintedMap map = CopyMap(window, PageSetup(), 0);
    EXPECT_EQ(map.title, QStringLiteral("Our plan.v2"));
    EXPECT_EQ(map.file, QStringLiteral("Our plan.v2.map"));
    EXPECT_EQ(map.made, desktop.clock.now);
    EXPECT_EQ(map.slices[0].caption, QStringLiteral("One"));
}

TEST_F(PrintedMapTest, CopiesOnlyWhatIsPrinted) {
    for (const char *name : {"One", "Two", "Three"}) AddSlice(QLatin1String(name));
    PageSetup setup;
    const auto counts = [&] {
        const PrintedMap map = CopyMap(window, setup, 1);
        std::vector<int> nodes;
        for (const PrintedSlice &slice : map.slices) nodes.push_back(slice.surface->Nodes().Count());
        return nodes;
    };
    EXPECT_EQ(counts(), (std::vector<int>{0, 1, 0}));
    setup.slices = Slices::All;
    EXPECT_EQ(counts(), (std::vector<int>{1, 1, 1}));
    setup.slices = Slices::Chosen;
    setup.chosen = {0, 2, 9};
    EXPECT_EQ(counts(), (std::vector<int>{1, 0, 1}));
}

TEST_F(PrintedMapTest, ASliceOfAnotherMapIsAnother) {
    AddSlice(QStringLiteral("One"));
    window.AddFlow1()[0].Nodes().Item(1).SetKey(QStringLiteral("one"));
    const SliceMark mark = MarkOf(window, 0);
    window.clsSettings().SetDatabase(QDir::temp().filePath(QStringLiteral("saved as.map")));
    EXPECT_EQ(TabOf(window, mark), 0);
    window.AddFlow1()[0].Nodes().Clear();
    AddBox(window.AddFlow1()[0], 0, 0, 10, 10).SetKey(QStringLiteral("another"));
    EXPECT_EQ(TabOf(window, mark), -1);
}

TEST_F(PrintedMapTest, ASliceIsKnownAgain) {
    for (const char *name : {"One", "Two", "Three"}) AddSlice(QLatin1String(name));
    document::Tabs &tabs = window.TabStrip();
    const SliceMark two = MarkOf(window, 1);
    EXPECT_EQ(TabOf(window, two), 1);
    const auto name = [&](int tab, const char *caption) {
        tabs.SetTheTab(tab);
        tabs.SetCaption(QLatin1String(caption));
    };
    name(1, "Second");
    EXPECT_EQ(TabOf(window, two), 1); // renamed
    name(0, "Two"), name(1, "One");
    EXPECT_EQ(TabOf(window, two), 0); // moved
    tabs.SetTabCount(2);
    EXPECT_EQ(TabOf(window, two), 0); // another one deleted
    name(0, "Three");
    EXPECT_EQ(TabOf(window, two), -1); // deleted
}

} // namespace

} // namespace print::testing
