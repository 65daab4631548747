#include "timeline/PrepFileForImport.h"

#include "diagram/format/SurfaceFile.h"
#include "document/Tags.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "tests/Errors.h"
#include "tests/timeline/TimelineTest.h"

#include <QTemporaryDir>

namespace timeline::testing {

namespace {

using document::GetTag;
using document::SetTag;
using document::tags::kGroup;
using document::tags::kLevel;

// A surface file, and the window of TimelineTest as the map that it comes into.
class Preparing : public TimelineTest {
protected:
    Preparing() {
        document::clsfrmMain &settings = window.clsSettings();
        settings.Levels().Create(QStringLiteral("1"), false, 0);
        second = settings.Levels().Create(QStringLiteral("2"), true, 0).Key;
        sales = settings.Groups().Create(QStringLiteral("Sales"), false).Key;
        staff = settings.Groups().Create(QStringLiteral("Staff"), true).Key;
    }
    QString File() const { return folder_.filePath(QStringLiteral("in.flt")); }
    diagram::Node &Tagged(const QString &group, const QString &level) {
        diagram::Node &node = source.Nodes().Add(0, 0, 900, 600);
        if (!group.isNull()) SetTag(node, kGroup, group);
        if (!level.isNull()) SetTag(node, kLevel, level);
        return node;
    }
    void Prepare(const KeyNames &names = {}) {
        diagram::SaveFile(source, File());
        diagram::Surface work;
        work.Nodes().Add(0, 0, 1, 1).SetText(QStringLiteral("left over"));
        PrepFileForImport(work, File(), window, names);
        diagram::LoadFile(result, File());
    }
    const diagram::Node &Result(int position) const { return result.Nodes().Item(position); }

    diagram::Surface source, result;
    QString second, sales, staff; // keys

private:
    QTemporaryDir folder_;
};

const QString kOther = QStringLiteral("{00000000-0000-0000-0000-00000000000F}");

} // namespace

TEST_F(Preparing, UnknownGroupsAndLevelsBecomeTheFirstSelectedOnes) {
    Tagged(kOther, kOther);
    Prepare();
    ASSERT_EQ(result.Nodes().Count(), 1);
    EXPECT_EQ(GetTag(Result(1), kGroup), staff);
    EXPECT_EQ(GetTag(Result(1), kLevel), second);
}

TEST_F(Preparing, KnownKeysStay) {
    Tagged(sales, window.clsSettings().Levels().Item(1).Key);
    Prepare();
    EXPECT_EQ(GetTag(Result(1), kGroup), sales);
    EXPECT_EQ(GetTag(Result(1), kLevel), window.clsSettings().Levels().Item(1).Key);
}

TEST_F(Preparing, ANodeWithNeitherGetsNeither) {
    Tagged(QString(), QString());
    Prepare();
    EXPECT_EQ(Result(1).Tag(), QString());
}

TEST_F(Preparing, WithoutASelectedOneTheyAreEmpty) {
    window.clsSettings().Groups().Item(2).Selected = false;
    window.clsSettings().Levels().Item(2).Selected = false;
    Tagged(kOther, kOther);
    Prepare();
    EXPECT_EQ(GetTag(Result(1), kGroup), QString());
    EXPECT_EQ(GetTag(Result(1), kLevel), QString());
}

TEST_F(Preparing, OfSeveralGroupsThoseThatTheMapHasStay) {
    Tagged(kOther + u',' + sales, QString());
    Prepare();
    EXPECT_EQ(GetTag(Result(1), kGroup), sales);
}

TEST_F(Preparing, NamesThatAreGivenFindTheMapsOwn) {
    Tagged(QStringLiteral("{G1},{G2}"), QStringLiteral("{L}"));
    KeyNames names;
    names.groups = {{QStringLiteral("{G1}"), QStringLiteral("Staff")},
                    {QStringLiteral("{G2}"), QStringLiteral("Sales")}};
    names.levels = {{QStringLiteral("{L}"), QStringLiteral("1")}};
    Prepare(names);
    EXPECT_EQ(GetTag(Result(1), kGroup), staff + u',' + sales);
    EXPECT_EQ(GetTag(Result(1), kLevel), window.clsSettings().Levels().Item(1).Key);
}

TEST_F(Preparing, NamesThatTheFileCarriesComeBeforeThoseAndBeforeKeys) {
    Tagged(QString(), second); // the key of "2", called "1" where it comes from
    KeyNames carried;
    carried.levels = {{second, QStringLiteral("1")}};
    CarryNames(*LocateTimelineNode(source, kDiagramDate, true), carried);
    KeyNames given;
    given.levels = {{second, QStringLiteral("2")}};
    Prepare(given);
    EXPECT_EQ(GetTag(Result(1), kLevel), window.clsSettings().Levels().Item(1).Key);
}

TEST_F(Preparing, NamesAreCarriedLetterForLetter) {
    KeyNames names;
    names.levels = {{QStringLiteral("{A}"), QStringLiteral("12 | a=b, c:d % 100")},
                    {QStringLiteral("{B}"), QStringLiteral("Größe 大")}};
    names.groups = {{QStringLiteral("{C}"), QStringLiteral("O'Brien \"x\"")}};
    diagram::Node &node = *LocateTimelineNode(source, kDiagramDate, true);
    CarryNames(node, names);
    EXPECT_EQ(CarriedNames(node).levels, names.levels);
    EXPECT_EQ(CarriedNames(node).groups, names.groups);
    EXPECT_EQ(GetTag(node, document::tags::kTheDate), kDiagramDate);
    EXPECT_EQ(GetTag(node, kLevel), QString()) << "no key of a tag is the beginning of another";
    EXPECT_TRUE(CarriedNames(UserNode()).levels.isEmpty());
}

TEST_F(Preparing, EveryNodeAndLinkGetsANewKey) {
    diagram::Node &a = Tagged(QString(), QString()), &b = Tagged(QString(), QString());
    a.SetKey(QStringLiteral("{A}"));
    a.Links().Add(b).SetKey(QStringLiteral("{L}"));
    Prepare();
    EXPECT_EQ(Result(1).Key().size(), 38);
    EXPECT_NE(Result(1).Key(), Result(2).Key());
    ASSERT_EQ(result.Links().size(), 1u);
    EXPECT_EQ(result.Links().front()->Key().size(), 38);
}

TEST_F(Preparing, MonthsAreShownAsThoseOfTheSliceAre) {
    LocateTimelineNode(source, QStringLiteral("May 2024"), true);
    for (const bool shown : {false, true}) {
        window.showsTimeline = shown;
        Prepare();
        EXPECT_EQ(Result(1).Hidden(), !shown);
    }
}

TEST_F(Preparing, ASliceWithoutMonthsLeavesThemAsTheyWere) {
    LocateTimelineNode(source, QStringLiteral("May 2024"), true);
    LocateTimelineNode(source, QStringLiteral("June 2024"), true)->SetHidden(true);
    Prepare();
    EXPECT_FALSE(Result(1).Hidden());
    EXPECT_TRUE(Result(2).Hidden());
}

TEST_F(Preparing, WhatIsNoSurfaceFileIsAnErrorAndStays) {
    support::AtomicFile file(File());
    file.Write("no surface");
    file.Commit();
    diagram::Surface work;
    const support::Error error = tests::ErrorOf([&] { PrepFileForImport(work, File(), window); });
    EXPECT_EQ(error.Number(), 321);
    EXPECT_TRUE(error.Source().contains(QStringLiteral("PrepFileForImport")));
    EXPECT_EQ(support::ReadWholeFile(File()), QByteArray("no surface"));
}

} // namespace timeline::testing
