// Nodes with an end: how it is kept and read, what it does to the strip, and what goes on with it.
#include "timeline/Span.h"

#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"
#include "timeline/DateText.h"
#include "timeline/DateWords.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/Following.h"
#include "timeline/MoveDates.h"
#include "timeline/ReadSpan.h"
#include "timeline/Tidy.h"

namespace timeline::testing {

namespace {

using Unit = DateStep::Unit;

class Spans : public TimelineTest {
protected:
    Spans() {
        Template(3100, 450);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    }

    void Give(diagram::Node &node, const QDate &first, const std::optional<QDate> &last = {}) {
        AddTimelineLinks(window, flow, {{&node, FormatDate(first, kDayPattern), last}});
    }
    diagram::Node &Lasting(const QDate &first, const std::optional<QDate> &last = {}) {
        diagram::Node &node = UserNode();
        Give(node, first, last);
        return node;
    }
    static Span Of(const diagram::Node &node) { return SpanOfNode(node).value(); }
};

constexpr int kYear = 2027;
QDate March(int day) { return {kYear, 3, day}; }
QDate April(int day) { return {kYear, 4, day}; }

} // namespace

TEST_F(Spans, TheEndIsKeptInTheTagAndAnEndBeforeTheDateIsNone) {
    diagram::Node &node = Lasting(March(14), April(2));
    EXPECT_EQ(document::GetTag(node, document::tags::kEndDate), QStringLiteral("2027-04-02"));
    EXPECT_EQ(Of(node), (Span{March(14), April(2)}));
    SetEndOfNode(node, March(14));
    EXPECT_EQ(Of(node).last, March(14)) << "a bar of one day";
    SetEndOfNode(node, March(13));
    EXPECT_EQ(Of(node), Span{March(14)});
    document::SetTag(node, document::tags::kEndDate, QStringLiteral("soon"));
    EXPECT_EQ(Of(node), Span{March(14)});
    EXPECT_FALSE(SpanOfNode(UserNode()));
}

TEST_F(Spans, AnotherDateAloneTakesTheEndAwayAndSoDoesNone) {
    diagram::Node &node = Lasting(March(14), April(2));
    Give(node, March(20));
    EXPECT_EQ(Of(node), Span{March(20)});
    Give(node, March(14), April(2));
    RemoveTimelineLinks(node);
    EXPECT_FALSE(EndOfNode(node));
}

TEST_F(Spans, ANodeWithoutAnEndGetsNoTag) { EXPECT_TRUE(Lasting(March(14)).Tag().isEmpty()); }

TEST_F(Spans, TheStripReachesToTheEndAndNoMonthOfAnEndIsTidiedAway) {
    for (const char *missing : {"False", "True"}) {
        Set(document::tags::kMissing, QString::fromLatin1(missing));
        diagram::Node &node = Lasting(March(14), QDate(kYear, 6, 20));
        EXPECT_EQ(Strip().size(), missing[0] == 'T' ? 4 : 2) << missing;
        EXPECT_EQ(TidyTimeline(window, flow), 0) << missing;
        Give(node, March(14));
        EXPECT_EQ(TidyTimeline(window, flow), missing[0] == 'T' ? 3 : 0) << missing;
        EXPECT_EQ(Strip(), QStringList(QStringLiteral("March 2027"))) << missing;
    }
}

TEST_F(Spans, MovedByAStepBothEndsGo) {
    diagram::Node &node = Lasting(March(14), April(2)), &plain = Lasting(March(20));
    ASSERT_TRUE(MoveDates(window, flow, {&node, &plain}, {1, Unit::Week}));
    EXPECT_EQ(Of(node), (Span{March(21), April(9)}));
    EXPECT_EQ(Of(plain), Span{March(27)});
    ASSERT_TRUE(MoveDates(window, flow, {&node}, {-1, Unit::Month}));
    EXPECT_EQ(Of(node), (Span{QDate(kYear, 2, 21), March(9)}));
}

TEST_F(Spans, AnEndDoesNotGoBeyondTheYearsOfDates) {
    diagram::Node &node = Lasting(QDate(3099, 12, 20), QDate(3099, 12, 31));
    EXPECT_FALSE(MoveDates(window, flow, {&node}, {1, Unit::Day}));
    EXPECT_EQ(Of(node).first, QDate(3099, 12, 20));
}

TEST_F(Spans, DraggedToAnotherDateTheEndGoesAlong) {
    diagram::Node &node = Lasting(March(14), April(2));
    DaysOfStrip days(window);
    days.SetDates(flow, {{&node, March(16)}}, {});
    EXPECT_EQ(Of(node), (Span{March(16), April(4)}));
    days.SetDates(flow, {{&node, March(16), March(18)}}, {});
    EXPECT_EQ(Of(node), (Span{March(16), March(18)}));
    EXPECT_EQ(days.DatesOf(node), QStringLiteral("16 March 2027 - 18 March 2027"));
    EXPECT_EQ(days.EndOf(node), March(18));
    EXPECT_TRUE(days.DatesOf(UserNode()).isEmpty());
}

TEST_F(Spans, ASearchFindsBothDates) {
    diagram::Node &node = Lasting(March(14), April(2));
    const QStringList words = DateWords(QStringLiteral("2/4/2027"), March(1))(node);
    for (const char *word : {"14 March 2027", "02 April 2027", "2/4/2027"})
        EXPECT_TRUE(words.contains(QString::fromLatin1(word))) << word;
    EXPECT_FALSE(DateWords(QStringLiteral("3/4/2027"), March(1))(node).contains(QStringLiteral("3/4/2027")));
}

TEST_F(Spans, AreReadAsPeopleWriteThem) {
    const std::pair<const char *, Span> rows[] = {
        {"14 Mar - 2 Apr", {March(14), April(2)}},
        {"14 March 2027 - 02 April 2027", {March(14), April(2)}},
        {"14 Mar \u2013 2 Apr", {March(14), April(2)}},
        {"from 14 Mar to 2 Apr", {March(14), April(2)}},
        {"14 Mar until +2w", {March(14), March(28)}},
        {"14 - 20 March", {March(14), March(20)}},
        {"14/3/2027-20/3/2027", {March(14), March(20)}},
        {"14 Mar for 2w", {March(14), March(27)}},
        {"14 Mar for 3 days", {March(14), March(16)}},
        {"14 Mar for a month", {March(14), April(13)}},
        {"14 Dec - 2 Jan", {QDate(kYear, 12, 14), QDate(kYear + 1, 1, 2)}},
        {"March - April", {March(1), April(30)}},
        {"tomorrow - tomorrow", {March(2), March(2)}},
        {"14 Mar", {March(14)}},
        {"14 Mar 2026 - 2 Apr", {QDate(2026, 3, 14), QDate(2026, 4, 2)}},
        {"Monday to Friday", {March(8), March(12)}},
        {"14 - 3 - 2004", {QDate(2004, 3, 14)}},
        {"Mar-04", {QDate(2004, 3, 1)}},
        {"2027-03-14", {March(14)}},
    };
    for (const auto &[text, span] : rows) {
        const SpanRead read = ReadSpanAsWritten(QString::fromUtf8(text), {March(1)});
        ASSERT_TRUE(read.span) << text << ": " << read.told.toStdString();
        EXPECT_EQ(read.span->first, span.first) << text;
        EXPECT_EQ(read.span->last, span.last) << text;
    }
}

TEST_F(Spans, AreReadInTheWordsOfTheLanguage) {
    const std::tuple<QLocale::Language, const char *, Span> rows[] = {
        {QLocale::German, "14. März bis 2. April", {March(14), April(2)}},
        {QLocale::German, "vom 14. bis 20. März", {March(14), March(20)}},
        {QLocale::German, "14. März für 2 Wochen", {March(14), March(27)}},
        {QLocale::German, "morgen bis übermorgen", {March(2), March(3)}},
        {QLocale::German, "heute", {March(1)}},
        {QLocale::French, "du 14 au 20 mars", {March(14), March(20)}},
        {QLocale::French, "14 mars pour 2 semaines", {March(14), March(27)}},
        {QLocale::Spanish, "del 14 al 20 de marzo", {March(14), March(20)}},
        {QLocale::Italian, "dal 14 al 20 marzo", {March(14), March(20)}},
        {QLocale::Dutch, "van 14 tot en met 20 maart", {March(14), March(20)}},
    };
    for (const auto &[language, text, span] : rows)
        EXPECT_EQ(ReadSpanAsWritten(QString::fromUtf8(text), {March(1)}, QLocale(language)).span, span)
            << text;
}

TEST_F(Spans, WhatIsWrittenIsReadAgain) {
    for (const Span &span : {Span{March(14), April(2)}, Span{March(14), March(14)}, Span{March(14)}})
        EXPECT_EQ(ReadSpanAsWritten(AsWritten(span), {QDate(2001, 1, 1)}).span, span);
}

TEST_F(Spans, WhatIsUnderstoodIsToldAndWhyNot) {
    const auto told = [](const char *text) {
        return ReadSpanAsWritten(QString::fromLatin1(text), {March(1)}).told;
    };
    EXPECT_EQ(told("14 Mar - 2 Apr"),
              QStringLiteral("Sunday, 14 March 2027 to Friday, 2 April 2027, 20 days"));
    EXPECT_EQ(told("14 Mar - 14 Mar"),
              QStringLiteral("Sunday, 14 March 2027 to Sunday, 14 March 2027, one day"));
    EXPECT_EQ(told("14 Mar 2027 - 2 Mar 2027"), QStringLiteral("The end lies before the beginning"));
    EXPECT_EQ(told("14 Mar - nonsense"), QStringLiteral("This is not understood as a date"));
    EXPECT_EQ(told("31 - 28 February"), QStringLiteral("There is no such day"));
    EXPECT_EQ(told("nonsense - 2 Apr"), told("nonsense"));
    EXPECT_EQ(told("14 Mar 3099 for 2 years"), YearsInWords());
    for (const char *text : {"-", " - ", "14 Mar to", "14 Mar for", "for 2w", "to", ""})
        EXPECT_FALSE(ReadSpanAsWritten(QString::fromLatin1(text), {March(1)}).span) << text;
}

class Pushes : public Spans {
protected:
    Pushes() { SetPushesFollowing(flow, true); }
};

TEST_F(Pushes, IsKeptWithTheTimelinesTemplateAndOffAtFirst) {
    EXPECT_TRUE(PushesFollowing(flow));
    EXPECT_TRUE(document::IsOn(*LocateTimeLineTemplateNode(flow, false), document::tags::kPushFollowing));
    EXPECT_FALSE(KeepsNodesAtDates(flow));
    SetPushesFollowing(flow, false);
    EXPECT_FALSE(PushesFollowing(flow));
}

TEST_F(Pushes, WhatDependsOnABarThatGrowsGoesOnByAsMuchAndSoDoesWhatFollowsThat) {
    diagram::Node &first = Lasting(March(1), March(10)), &second = Lasting(March(11), March(15));
    diagram::Node &third = Lasting(March(16)), &free = Lasting(March(11), March(12));
    first.Links().Add(second);
    second.Links().Add(third);
    Give(first, March(1), March(13));
    EXPECT_EQ(Of(second), (Span{March(14), March(18)}));
    EXPECT_EQ(Of(third), Span{March(19)});
    EXPECT_EQ(Of(free), (Span{March(11), March(12)})) << "nothing leads to it";
    Give(first, March(1), March(5));
    EXPECT_EQ(Of(second), (Span{March(14), March(18)})) << "nothing is pulled back";
}

TEST_F(Pushes, WhatBeginsBehindTheNewEndStays) {
    diagram::Node &first = Lasting(March(1), March(10)), &second = Lasting(March(14));
    first.Links().Add(second);
    Give(first, March(1), March(13));
    EXPECT_EQ(Of(second), Span{March(14)});
    Give(first, March(2), March(14));
    EXPECT_EQ(Of(second), Span{March(15)}) << "a bar takes its last day";
}

TEST_F(Pushes, WhatTakesNoTimeLeavesItsDayToTheNext) {
    diagram::Node &first = Lasting(March(1)), &second = Lasting(March(5));
    first.Links().Add(second);
    Give(first, March(5));
    EXPECT_EQ(Of(second), Span{March(5)});
    Give(first, March(6));
    EXPECT_EQ(Of(second), Span{March(6)});
}

TEST_F(Pushes, OfTwoChainsTheOneThatMovesFartherCountsAndACircleEnds) {
    diagram::Node &a = Lasting(March(1), March(5)), &b = Lasting(March(1), March(5));
    diagram::Node &next = Lasting(March(6), March(8));
    a.Links().Add(next);
    b.Links().Add(next);
    next.Links().Add(a);
    AddTimelineLinks(
        window, flow,
        {{&a, QStringLiteral("01 March 2027"), March(7)}, {&b, QStringLiteral("01 March 2027"), March(9)}});
    EXPECT_EQ(Of(next), (Span{March(10), March(12)}));
    EXPECT_EQ(Of(a), (Span{March(1), March(7)})) << "as it was given";
}

TEST_F(Pushes, MovedTogetherEachGoesOnce) {
    diagram::Node &first = Lasting(March(1), March(10)), &second = Lasting(March(11), March(15));
    first.Links().Add(second);
    MoveDates(window, flow, {&first, &second}, {2, Unit::Day});
    EXPECT_EQ(Of(first), (Span{March(3), March(12)}));
    EXPECT_EQ(Of(second), (Span{March(13), March(17)}));
}

TEST_F(Pushes, SwitchedOffNothingFollows) {
    SetPushesFollowing(flow, false);
    diagram::Node &first = Lasting(March(1), March(10)), &second = Lasting(March(11), March(15));
    first.Links().Add(second);
    Give(first, March(1), March(20));
    EXPECT_EQ(Of(second).first, March(11));
    DaysOfStrip days(window);
    EXPECT_EQ(days.WhatFollows(flow, {{&first, March(1), March(25)}}).count, 0);
}

TEST_F(Pushes, WhatWouldFollowIsShownBeforeItIsDone) {
    SetKeepsNodesAtDates(flow, true);
    diagram::Node &first = Lasting(March(1), March(10)), &second = Lasting(March(11), March(15));
    first.Links().Add(second);
    DaysOfStrip days(window);
    const QRectF before = second.Bounds();
    const auto following = days.WhatFollows(flow, {{&first, March(1), March(12)}});
    EXPECT_EQ(following.count, 1);
    EXPECT_EQ(following.told, QStringLiteral("one more follows"));
    ASSERT_EQ(following.boxes.size(), 1U);
    EXPECT_EQ(following.boxes[0], before.translated(200, 0)) << "slots of 100 twips";
    EXPECT_EQ(Of(second).first, March(11));
    EXPECT_EQ(second.Bounds(), before);
    EXPECT_EQ(days.WhatFollows(flow, {{&first, March(1), March(9)}}).count, 0);
}

} // namespace timeline::testing
