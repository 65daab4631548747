#include "document/Tags.h"

#include "diagram/model/Surface.h"
#include "support/clsGUID.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>

using namespace document;

namespace {

struct Tagged {
    QString tag;
    const QString &Tag() const { return tag; }
    void SetTag(const QString &text) { tag = text; }
};

QString Set(const char *tag, const char *key, const char *value) {
    Tagged object{QString::fromLatin1(tag)};
    const QString given = SetTag(object, QString::fromLatin1(key), QString::fromLatin1(value));
    EXPECT_EQ(given, object.tag);
    return given;
}

QString Get(const char *tag, const char *key) {
    return GetTag(Tagged{QString::fromLatin1(tag)}, QString::fromLatin1(key));
}

} // namespace

TEST(Tag, SetTag_StartsAnEmptyTagWithTheSeparator) { EXPECT_EQ(Set("", "key", "value"), "|KEY=value"); }

TEST(Tag, GetTag_IgnoresCaseOnBothSides) {
    EXPECT_EQ(Get("|GROUP=x", "group"), "x");
    EXPECT_EQ(Get("|group=x", "GROUP"), "x");
}

TEST(Tag, GetTag_GivesTheLaterOfTwoEqualKeys) { EXPECT_EQ(Get("|A=1|B=2|A=3", "A"), "3"); }

TEST(Tag, SetTag_ReplacesTheLaterOfTwoEqualKeys) { EXPECT_EQ(Set("|A=1|B=2|A=3", "a", "4"), "|A=1|B=2|A=4"); }

TEST(Tag, SetTag_WithAnEmptyValueKeepsTheKey) {
    EXPECT_EQ(Set("", "KEY", ""), "|KEY=");
    EXPECT_EQ(Get("|KEY=", "KEY"), "");
    EXPECT_EQ(Get("", "KEY"), "");
    EXPECT_EQ(Get("|OTHER=1", "KEY"), "");
}

TEST(Tag, GetTag_KeepsLaterEqualSignsInTheValue) { EXPECT_EQ(Get("|A=b=c", "A"), "b=c"); }

TEST(Tag, SetTag_AppendsBehindASingleBlank) {
    EXPECT_EQ(Set(" ", "A", "1"), " |A=1");
    EXPECT_EQ(Get(" ", "A"), "");
}

TEST(Tag, GetTag_FindsAKeyByItsBeginning) { EXPECT_EQ(Get("|LEVELS=5", "LEVEL"), "5"); }

TEST(Tag, GetTag_GivesAPieceWithoutEqualSignWhole) { EXPECT_EQ(Get("|HYPER", "HYPER"), "HYPER"); }

TEST(Tag, SetTag_WorksOnNodesAndSurfaces) {
    diagram::Surface surface;
    diagram::Node &node = surface.Nodes().Add(0, 0, 10, 10);
    SetTag(node, tags::kHyper, QStringLiteral("Yes"));
    SetTag(surface, tags::kTimelineAlign, QStringLiteral("4"));
    EXPECT_EQ(node.Tag(), "|HYPER=Yes");
    EXPECT_EQ(GetTag(surface, tags::kTimelineAlign), "4");
}

TEST(Tag, NoKeyInUseBeginsAnother) {
    const QString keys[] = {
        tags::kGroup,         tags::kLevel,           tags::kHyper,       tags::kTheDate,
        tags::kDateFormat,    tags::kTimelineAlign,   tags::kMissing,     tags::kNamesOfLevels,
        tags::kNamesOfGroups, tags::kMonthHidden,     tags::kMonthFolded, tags::kBandsHidden,
        tags::kWeekends,      tags::kTodayEverywhere, tags::kAtDates,     tags::kLanes,
        tags::kPushFollowing, tags::kEndDate,         tags::kOwnExtent,   tags::kRowsOfLanes};
    for (const QString &a : keys)
        for (const QString &b : keys)
            EXPECT_EQ(a.startsWith(b, Qt::CaseInsensitive), a == b) << a.toStdString();
}

TEST(Tag, ASwitchIsWrittenOnlyWhereItSaysSomething) {
    diagram::Surface surface;
    diagram::Node &node = surface.Nodes().Add(0, 0, 100, 100);
    EXPECT_FALSE(IsOn(node, tags::kMonthHidden));
    SetSwitch(node, tags::kMonthHidden, false);
    EXPECT_EQ(node.Tag(), "");
    SetSwitch(node, tags::kMonthHidden, true);
    EXPECT_TRUE(IsOn(node, tags::kMonthHidden));
    EXPECT_FALSE(IsOn(node, tags::kMonthFolded));
    SetSwitch(node, tags::kMonthHidden, false);
    EXPECT_FALSE(IsOn(node, tags::kMonthHidden));
}

TEST(ChangeGUIDs, GivesNewKeysToAllOrToTheSelection) {
    const support::testing::ScriptedDesktop desktop;
    diagram::Surface surface;
    diagram::Node &a = surface.Nodes().Add(0, 0, 10, 10), &b = surface.Nodes().Add(50, 0, 10, 10);
    diagram::Link &link = a.Links().Add(b);
    a.SetKey(QStringLiteral("a"));
    b.SetKey(QStringLiteral("b"));
    link.SetKey(QStringLiteral("l"));
    b.SetSelected(true);
    ChangeGUIDs(surface, true);
    EXPECT_EQ(a.Key(), "a");
    EXPECT_TRUE(support::CheckGUID(b.Key()));
    EXPECT_EQ(link.Key(), "l");
    ChangeGUIDs(surface, false);
    EXPECT_TRUE(support::CheckGUID(a.Key()));
    EXPECT_TRUE(support::CheckGUID(link.Key()));
}
