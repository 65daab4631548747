#include "timeline/MoveDates.h"

#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"

namespace timeline::testing {

namespace {

using Unit = DateStep::Unit;

class Moving : public TimelineTest {
protected:
    Moving() {
        Template(1000, 500);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    }
    diagram::Node &Dated(const char *date) {
        diagram::Node &node = UserNode();
        AddTimelineLink(window, flow, node, QString::fromLatin1(date));
        return node;
    }
};

} // namespace

TEST(DateStepText, IsASignAndANumberWithAUnitOrDays) {
    const std::pair<const char *, DateStep> rows[] = {{"+2w", {2, Unit::Week}},
                                                      {"-10d", {-10, Unit::Day}},
                                                      {"+5", {5, Unit::Day}},
                                                      {"+ 3 months", {3, Unit::Month}},
                                                      {"- 1 year", {-1, Unit::Year}}};
    for (const auto &[text, step] : rows) EXPECT_EQ(ReadDateStep(QString::fromLatin1(text)), step) << text;
    for (const char *text : {"2w", "in 2 weeks", "+", "+2x", "14 march 2004", "+12345d", ""})
        EXPECT_EQ(ReadDateStep(QString::fromLatin1(text)), std::nullopt) << text;
}

TEST(DateStepText, HasTheUnitsOfTheLanguageToo) {
    const QLocale german(QLocale::German), french(QLocale::French);
    EXPECT_EQ(ReadDateStep(QStringLiteral("+2 wochen"), german), (DateStep{2, Unit::Week}));
    EXPECT_EQ(ReadDateStep(QStringLiteral("-1 monat"), german), (DateStep{-1, Unit::Month}));
    EXPECT_EQ(ReadDateStep(QStringLiteral("+2w"), german), (DateStep{2, Unit::Week}));
    EXPECT_EQ(ReadDateStep(QStringLiteral("+ 3 semaines"), french), (DateStep{3, Unit::Week}));
    EXPECT_EQ(ReadDateStep(QStringLiteral("+2 wochen"), french), std::nullopt);
}

TEST(DateStepText, IsToldInWords) {
    EXPECT_EQ(InWords({2, Unit::Week}), QStringLiteral("2 weeks later"));
    EXPECT_EQ(InWords({1, Unit::Month}), QStringLiteral("one month later"));
    EXPECT_EQ(InWords({-1, Unit::Day}), QStringLiteral("one day earlier"));
    EXPECT_EQ(InWords({-3, Unit::Year}), QStringLiteral("3 years earlier"));
    EXPECT_EQ(InWords({0, Unit::Day}), QStringLiteral("0 days later"));
}

TEST(DateStepText, AMonthEndsWhereItEnds) {
    EXPECT_EQ(Moved(QDate(2004, 1, 31), {1, Unit::Month}), QDate(2004, 2, 29));
    EXPECT_EQ(Moved(QDate(2004, 2, 29), {1, Unit::Year}), QDate(2005, 2, 28));
}

TEST_F(Moving, EachNodeMovesFromItsOwnDate) {
    diagram::Node &first = Dated("14 March 2004"), &second = Dated("30 March 2004"), &none = UserNode();
    const auto moved = MoveDates(window, flow, {&second, &first, &none}, {2, Unit::Week});
    ASSERT_TRUE(moved);
    EXPECT_EQ(DateOfNode(first), QStringLiteral("28 March 2004"));
    EXPECT_EQ(DateOfNode(second), QStringLiteral("13 April 2004"));
    EXPECT_TRUE(DateOfNode(none).isEmpty());
    EXPECT_EQ(moved->moved, 2);
    EXPECT_EQ(moved->undated, 1);
    EXPECT_EQ(moved->first, QDate(2004, 3, 28));
    EXPECT_EQ(moved->last, QDate(2004, 4, 13));
    EXPECT_NE(LocateTimelineNode(flow, QStringLiteral("April 2004"), false), nullptr);
}

TEST_F(Moving, WithoutADateNothingMoves) {
    const int before = flow.Nodes().Count();
    const auto moved = MoveDates(window, flow, {&UserNode(), &UserNode()}, {1, Unit::Day});
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->moved, 0);
    EXPECT_EQ(moved->undated, 2);
    EXPECT_EQ(flow.Nodes().Count(), before + 2);
}

TEST_F(Moving, BeyondTheYearsOfDatesNoneMoves) {
    diagram::Node &first = Dated("14 March 2004"), &last = Dated("31 December 3099");
    EXPECT_FALSE(MoveDates(window, flow, {&first, &last}, {1, Unit::Day}));
    EXPECT_EQ(DateOfNode(first), QStringLiteral("14 March 2004"));
    EXPECT_TRUE(MoveDates(window, flow, {&first, &last}, {-1, Unit::Day}));
    EXPECT_EQ(DateOfNode(last), QStringLiteral("30 December 3099"));
}

} // namespace timeline::testing
