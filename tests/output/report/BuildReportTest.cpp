#include "output/report/BuildReport.h"

#include "diagram/model/Surface.h"

#include <gmock/gmock.h>

namespace output {
namespace {

using ::testing::ElementsAre;

// A line as its text, with "|" behind what is written in the font of captions.
std::vector<QString> TextsOf(const ReportBlocks &blocks) {
    std::vector<QString> texts;
    for (const ReportBlock &block : blocks) {
        QString text = std::holds_alternative<ReportPicture>(block) ? QStringLiteral("(picture)") : QString();
        if (const auto *line = std::get_if<ReportLine>(&block))
            for (const ReportRun &run : line->runs)
                text += run.style == ReportStyle::Caption ? run.text + u'|' : run.text;
        texts.push_back(text);
    }
    return texts;
}

std::vector<QString> EntryOf(const NodeOutput &node, bool details) {
    ReportBlocks blocks;
    AddNode(blocks, node, details);
    return TextsOf(blocks);
}

NodeOutput Full() {
    NodeOutput node;
    node.text = QStringLiteral("Idea");
    node.event = QStringLiteral("Notes");
    node.level = QStringLiteral("Goal");
    node.groups = QStringLiteral("Sales,Staff");
    node.dates = {QStringLiteral("17 May 2024")};
    node.linksTo = {QStringLiteral("One"), QStringLiteral("Two")};
    return node;
}

TEST(BuildReport, AnEntryHasAllRowsInTheirOrderAndThreeLinesBehindThem) {
    EXPECT_THAT(EntryOf(Full(), true),
                ElementsAre("Text: |Idea", "Other: |Notes", "Date: |17 May 2024", "Links To:|", "One", "Two",
                            "Level: |Goal", "Groups: |Sales,Staff", "", " ", " "));
}

TEST(BuildReport, WithoutDetailsThereIsTheTextAlone) {
    EXPECT_THAT(EntryOf(Full(), false), ElementsAre("Text: |Idea", "", " ", " "));
}

TEST(BuildReport, WhatANodeDoesNotHaveHasNoRowButForLevelAndGroups) {
    EXPECT_THAT(EntryOf({}, true), ElementsAre("Text: |", "Level: |", "Groups: |", "", " ", " "));
}

TEST(BuildReport, LineEndsOfAnyKindMakeLines) {
    NodeOutput node;
    node.text = QStringLiteral("a\r\nb\rc\nd\u2028e\n\nf");
    EXPECT_THAT(EntryOf(node, false), ElementsAre("Text: |a", "b", "c", "d", "e", "", "f", "", " ", " "));
}

TEST(BuildReport, AllLinesOfAValueGoInTheDirectionInWhichItBegins) {
    NodeOutput node;
    node.text = QStringLiteral("שלום\nplain");
    node.event = QStringLiteral("plain שלום");
    ReportBlocks blocks;
    AddNode(blocks, node, true);
    EXPECT_TRUE(std::get<ReportLine>(blocks[0]).rightToLeft);
    EXPECT_TRUE(std::get<ReportLine>(blocks[1]).rightToLeft);
    EXPECT_FALSE(std::get<ReportLine>(blocks[2]).rightToLeft);
}

TEST(BuildReport, CaptionsAndRowsStayWithWhatFollowsThemButNotTheLastOne) {
    ReportBlocks blocks;
    AddNode(blocks, Full(), true);
    std::vector<bool> stays;
    for (const ReportBlock &block : blocks) stays.push_back(std::get<ReportLine>(block).staysWithNext);
    EXPECT_THAT(stays, ElementsAre(true, true, true, true, false, false, true, false, false, false, false));
}

TEST(BuildReport, APictureStandsBelowItsCaptionInItsOwnSize) {
    settings::ProductTerms terms;
    terms.MAP = QStringLiteral("Plan");
    settings::SetTerms(terms);
    diagram::Surface surface;
    surface.Nodes().Add(0, 0, 3000, 1500);
    SliceOutput slice;
    slice.caption = QStringLiteral("First");
    slice.surface = &surface;
    ReportBlocks blocks;
    AddPicture(blocks, slice);
    EXPECT_THAT(TextsOf(blocks), ElementsAre("Plan Picture (First): |", "(picture)"));
    EXPECT_TRUE(std::get<ReportLine>(blocks[0]).staysWithNext);
    const ReportPicture &picture = std::get<ReportPicture>(blocks[1]);
    EXPECT_EQ(picture.size, diagram::PictureSize(surface));
    EXPECT_GT(picture.size.width(), 3000);
    EXPECT_EQ(picture.description, QStringLiteral("Plan Picture (First)"));
    EXPECT_TRUE(picture.file(diagram::PictureFormat::Svg, {}).contains("<svg"));
}

TEST(BuildReport, TheFontsAreThoseOfTheSettingsWithSizesInWholePoints) {
    settings::ProductTerms terms;
    terms.EXPORT_HEADER = {true, false, true, 13.6, QStringLiteral("Serif")};
    settings::SetTerms(terms);
    MapOutput map;
    map.title = QStringLiteral("Title");
    map.filter.leavesOut = true;
    const ReportProperties properties = PropertiesOf(map);
    EXPECT_EQ(properties.caption.size, 14);
    EXPECT_TRUE(properties.caption.bold && properties.caption.underline);
    EXPECT_EQ(properties.caption.font, QStringLiteral("Serif"));
    EXPECT_FALSE(properties.value.font.isEmpty()) << "settings that are missing leave a report readable";
    EXPECT_GT(properties.value.size, 0);
    EXPECT_EQ(properties.title, QStringLiteral("Title"));
    EXPECT_EQ(properties.filter, QStringLiteral("Levels: none. Groups: none."));
    EXPECT_GT(properties.paper.width(), properties.paper.height());
}

} // namespace
} // namespace output
