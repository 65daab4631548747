// Whose the bends of links are, over a save and a load.
#include "document/RoutedRows.h"

#include "diagram/edit/History.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Surface.h"
#include "document/MapSchema.h"
#include "document/SurfaceArray.h"
#include "storage/Fields.h"
#include "tests/document/MapTest.h"

using namespace document;
using namespace document::testing;

namespace {

constexpr int kHVH = 5;

class RoutedRowsTest : public MapTest {
protected:
    RoutedRowsTest() {
        if (!surface.Actions().Log()) diagram::AttachHistory(surface);
    }
    diagram::Link &Join(diagram::Node &from, diagram::Node &to) {
        const diagram::ActionGroup group(surface);
        diagram::Link &link = from.Links().Add(to);
        link.SetStyle(kHVH);
        return link;
    }
    QString Saved() {
        SaveAs(*window, MapFile(QStringLiteral("a.map")));
        return MapFile(QStringLiteral("a.map"));
    }
    static bool HasTable(const QString &path) {
        return storage::TableExistsDB(storage::OpenDatabase(path), NameOf(schema::kRoutedLinks));
    }
    // Two routes that have been nudged apart, so that the router alone would choose others.
    void AddNudged() {
        in = &Join(b, a);
        out = &Join(a, c);
        ASSERT_NE(in->Route().back().y, a.Bounds().center().y());
        ASSERT_NE(out->Route().front().y, a.Bounds().center().y());
    }
    static std::vector<bool> Own(MapWindow &of) {
        std::vector<bool> own;
        for (const auto &link : of.AddFlow1()[0].Links()) own.push_back(link->OwnBends());
        return own;
    }

    std::unique_ptr<MemoryWindow> window = NewWindow();
    diagram::Surface &surface = window->AddFlow1()[0];
    diagram::Node &a = surface.Nodes().Add(0, 1500, 1500, 900);
    diagram::Node &b = surface.Nodes().Add(6000, 0, 1500, 900);
    diagram::Node &c = surface.Nodes().Add(6000, 4000, 1500, 900);
    diagram::Link *in = nullptr, *out = nullptr;
};

} // namespace

TEST_F(RoutedRowsTest, RoutesThatWereNudgedComeBackAsTheRouters) {
    AddNudged();
    const QString path = Saved();
    const auto read = Loaded(path);
    const auto &links = read->AddFlow1()[0].Links();
    ASSERT_EQ(links.size(), 2U);
    EXPECT_EQ(links[0]->Route(), in->Route());
    EXPECT_EQ(links[1]->Route(), out->Route());
    EXPECT_EQ(Own(*read), (std::vector<bool>{false, false}));
    Run(path, QStringLiteral("DELETE FROM [RoutedLinks]"));
    EXPECT_EQ(Own(*Loaded(path)), (std::vector<bool>{true, true})) << "nothing else tells";
}

TEST_F(RoutedRowsTest, ASecondSaveKeepsThem) {
    AddNudged();
    const auto read = Loaded(Saved());
    SaveAs(*read, MapFile(QStringLiteral("b.map")));
    EXPECT_EQ(Own(*Loaded(MapFile(QStringLiteral("b.map")))), (std::vector<bool>{false, false}));
}

TEST_F(RoutedRowsTest, BendsOfTheUserStayTheUsers) {
    AddNudged();
    in->Points().SetItem(1, {in->Route()[1].x + 300, in->Route()[1].y});
    const auto kept = in->Route();
    const auto read = Loaded(Saved());
    EXPECT_EQ(Own(*read), (std::vector<bool>{true, false}));
    EXPECT_EQ(read->AddFlow1()[0].Links()[0]->Route(), kept);
}

TEST_F(RoutedRowsTest, PointsThatSomebodyElseHasWrittenAreJudgedAsEver) {
    AddNudged();
    const QString path = Saved();
    Run(path, QStringLiteral("UPDATE [LinkPoints] SET [x] = [x] + 150"));
    EXPECT_EQ(Own(*Loaded(path)), (std::vector<bool>{true, true}));
}

TEST_F(RoutedRowsTest, AMapWithoutSuchLinksHasNoTable) {
    constexpr int kBezier = 1;
    a.Links().Add(b).SetStyle(kBezier);
    EXPECT_FALSE(HasTable(Saved()));
    a.Links().Add(b).SetStyle(kHVH);
    EXPECT_TRUE(HasTable(Saved()));
}

TEST_F(RoutedRowsTest, AStraightLineBendsByItselfOnlyWhereTheMapSaysSo) {
    a.Links().Add(b).SetStyle(0);
    const QString path = Saved();
    EXPECT_EQ(Own(*Loaded(path)), std::vector<bool>{false});
    Run(path, QStringLiteral("DELETE FROM [RoutedLinks]"));
    EXPECT_EQ(Own(*Loaded(path)), std::vector<bool>{true}) << "as in maps from before";
}

TEST_F(RoutedRowsTest, ATableOfThatNameFromElsewhereIsPassedOver) {
    AddNudged();
    const QString path = Saved();
    Run(path, QStringLiteral("DROP TABLE [RoutedLinks]; CREATE TABLE [RoutedLinks] ([Other] TEXT)"));
    EXPECT_EQ(Own(*Loaded(path)).size(), 2U);
    Run(path, QStringLiteral("DROP TABLE [RoutedLinks]; CREATE TABLE [RoutedLinks] ([Link], [Sum]);"
                             "INSERT INTO [RoutedLinks] SELECT [Key], 'no number' FROM [Links]"));
    EXPECT_EQ(Own(*Loaded(path)), (std::vector<bool>{true, true}));
}

TEST_F(RoutedRowsTest, SumsTellRoutesApart) {
    const std::vector<diagram::Point> route{{1, 2}, {3, 4}}, back{{3, 4}, {1, 2}},
        longer{{1, 2}, {3, 4}, {0, 0}};
    EXPECT_EQ(SumOf(route), SumOf(std::vector<diagram::Point>(route)));
    EXPECT_NE(SumOf(route), SumOf(back));
    EXPECT_NE(SumOf(route), SumOf(longer));
}
