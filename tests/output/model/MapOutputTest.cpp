#include "output/model/MapOutput.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "tests/document/MapTest.h"
#include "tests/document/Slices.h"
#include "timeline/Span.h"
#include "timeline/TimelineNodes.h"

#include <gmock/gmock.h>

namespace output {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MapOutputTest : public document::testing::MapTest {
protected:
    diagram::Surface &AddSlice(const QString &caption) {
        return document::testing::AddSlice(*window, caption);
    }
    void Name(int index, const QString &caption) {
        window->TabStrip().SetTheTab(index);
        window->TabStrip().SetCaption(caption);
    }
    diagram::Node &AddNode(const QString &text) {
        diagram::Node &node = first.Nodes().Add(0, 0, 1500, 900);
        node.SetText(text);
        return node;
    }

    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    diagram::Surface &first = window->AddFlow1()[0];
};

TEST_F(MapOutputTest, EverySliceIsReadWithItsCaptionAndTheCurrentOneIsKnown) {
    Name(0, QStringLiteral("One"));
    AddSlice(QStringLiteral("Two")).SetBackColor(support::Rgb(1, 2, 3));
    AddSlice(QString());
    window->TabStrip().SetTheTab(1);
    const MapOutput map = ReadMap(*window);
    ASSERT_EQ(map.slices.size(), 3u);
    EXPECT_EQ(map.slices[0].caption, QStringLiteral("One"));
    EXPECT_EQ(map.slices[2].caption, QString());
    EXPECT_EQ(map.slices[2].index, 2);
    EXPECT_EQ(map.Current().caption, QStringLiteral("Two"));
    EXPECT_EQ(map.Current().backColour, support::Rgb(1, 2, 3));
    EXPECT_THAT(map.Current().nodes, IsEmpty());
}

TEST_F(MapOutputTest, AMapIsCalledAfterItsFileAndWithoutOneByTheProductsWord) {
    EXPECT_EQ(ReadMap(*window).title, settings::Terms().MAP);
    window->clsSettings().SetDatabase(MapFile(QStringLiteral("Our plan.v2.map")));
    EXPECT_EQ(ReadMap(*window).title, QStringLiteral("Our plan.v2"));
    EXPECT_EQ(ReadMap(*window).file, MapFile(QStringLiteral("Our plan.v2.map")));
    EXPECT_EQ(ReadMap(*window).made, desktop.Get().clock.Now());
}

TEST_F(MapOutputTest, ANodeHasItsTextsAndTheNamesOfItsLevelAndGroups) {
    document::clsfrmMain &settings = window->clsSettings();
    const QString level = settings.Levels().Create(QStringLiteral("Goal"), true, 0).Key;
    const QString groups = settings.Groups().Create(QStringLiteral("Sales"), true).Key + u',' +
                           settings.Groups().Create(QStringLiteral("Staff"), true).Key;
    diagram::Node &node = AddNode(QStringLiteral("Idea"));
    node.SetEvent(QStringLiteral("Notes"));
    node.SetHidden(true);
    document::SetTag(node, document::tags::kLevel, level);
    document::SetTag(node, document::tags::kGroup, groups);
    AddNode(QString());
    const SliceOutput slice = ReadMap(*window).Current();
    ASSERT_EQ(slice.nodes.size(), 2u);
    EXPECT_EQ(slice.nodes[0].text, QStringLiteral("Idea"));
    EXPECT_EQ(slice.nodes[0].event, QStringLiteral("Notes"));
    EXPECT_EQ(slice.nodes[0].level, QStringLiteral("Goal"));
    EXPECT_EQ(slice.nodes[0].groups, QStringLiteral("Sales,Staff"));
    EXPECT_TRUE(slice.nodes[0].hidden);
    EXPECT_FALSE(slice.nodes[1].hidden);
    EXPECT_EQ(slice.nodes[1].level, QString());
}

TEST_F(MapOutputTest, DateLinksAndOrdinaryLinksAreToldApartAndOthersAreNeither) {
    diagram::Node &from = AddNode(QStringLiteral("From")), &to = AddNode(QStringLiteral("To"));
    from.Links().Add(to);
    from.Links().Add(AddNode(QStringLiteral("Marked"))).SetMarked(true);
    from.Links().Add(AddNode(QStringLiteral("Fixed"))).SetSelectable(false);
    timeline::LocateTimelineNode(first, QStringLiteral("17 May 2024"), true, &from);
    const NodeOutput read = ReadMap(*window).Current().nodes[0];
    EXPECT_THAT(read.linksTo, ElementsAre(QStringLiteral("To")));
    EXPECT_THAT(read.dates, ElementsAre(QStringLiteral("17 May 2024")));
}

TEST_F(MapOutputTest, OfANodeThatLastsBothDaysAreTold) {
    diagram::Node &from = AddNode(QStringLiteral("From"));
    timeline::LocateTimelineNode(first, QStringLiteral("17 May 2024"), true, &from);
    timeline::SetEndOfNode(from, QDate(2024, 6, 2));
    EXPECT_THAT(ReadMap(*window).Current().nodes[0].dates,
                ElementsAre(QStringLiteral("17 May 2024 - 02 June 2024")));
    timeline::SetEndOfNode(from, QDate(2024, 5, 16));
    EXPECT_THAT(ReadMap(*window).Current().nodes[0].dates, ElementsAre(QStringLiteral("17 May 2024")))
        << "an end before the date is none";
}

TEST_F(MapOutputTest, ALinkThatArrivesLeadsToTheNodeItself) {
    AddNode(QStringLiteral("From")).Links().Add(AddNode(QStringLiteral("To")));
    EXPECT_THAT(ReadMap(*window).Current().nodes[1].linksTo, ElementsAre(QStringLiteral("To")));
}

TEST_F(MapOutputTest, APictureIsMadeWithoutAWriteToTheSurface) {
    AddNode(QStringLiteral("Seen")).SetSelected(true);
    AddNode(QStringLiteral("Unseen")).SetHidden(true);
    const diagram::Revision revision = first.Actions().Revision();
    const QByteArray before = diagram::SaveBytes(first);
    const SliceOutput slice = ReadMap(*window).Current();
    const QByteArray svg = slice.Picture(diagram::PictureFormat::Svg);
    EXPECT_TRUE(svg.contains("Seen"));
    EXPECT_FALSE(svg.contains("Unseen"));
    EXPECT_TRUE(slice.Picture(diagram::PictureFormat::Png).startsWith("\x89PNG"));
    EXPECT_GT(slice.PictureSize().width(), 1500);
    EXPECT_TRUE(first.Nodes().Item(1).Selected());
    EXPECT_TRUE(diagram::SaveBytes(first) == before);
    EXPECT_TRUE(first.Actions().Revision() == revision);
}

TEST_F(MapOutputTest, TheFilterTellsWhatIsTickedOnceSomethingIsNot) {
    document::clsfrmMain &settings = window->clsSettings();
    settings.Levels().Clear();
    settings.Groups().Clear();
    EXPECT_EQ(FilterText(ReadMap(*window).filter), QStringLiteral("Everything is shown."));
    settings.Levels().Create(QStringLiteral("Goal"), true, 0);
    settings.Levels().Create(QStringLiteral("Step"), true, 0);
    EXPECT_EQ(FilterText(ReadMap(*window).filter), QStringLiteral("Everything is shown."));
    settings.Groups().Create(QStringLiteral("Sales"), false);
    EXPECT_EQ(FilterText(ReadMap(*window).filter), QStringLiteral("Levels: Goal, Step. Groups: none."));
}

} // namespace
} // namespace output
