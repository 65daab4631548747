#include "timeline/DateLanguage.h"

#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/DateText.h"

namespace timeline::testing {

namespace {

// A map that was made in another language, opened by an English user.
class Foreign : public TimelineTest {
protected:
    // A node with a date, made while that language was the user's.
    void Made(const QLocale &language, std::initializer_list<QDate> dates) {
        QLocale::setDefault(language);
        Template(3100, 500);
        for (const QDate &date : dates) Day(FormatDate(date, kDayPattern));
        Arrange(2);
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    }
};

} // namespace

TEST_F(Foreign, AStripMadeInAnotherLanguageIsLaidOutInTheUsers) {
    Made(QLocale::German, {QDate(2004, 3, 14), QDate(2004, 5, 2)});
    ASSERT_EQ(Strip().front(), QStringLiteral("März 2004"));
    Arrange(2);
    EXPECT_EQ(Strip(), QStringList({QStringLiteral("March 2004"), QStringLiteral("May 2004")}));
    EXPECT_NE(LocateTimelineNode(flow, QStringLiteral("14 March 2004"), false), nullptr);
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("14 March 2004"), false)->Text(),
              QStringLiteral("14 March 2004"));
}

TEST_F(Foreign, AllDatesTogetherDecideOnTheLanguage) {
    // The Czech November is the Croatian October.
    Made(QLocale::Czech, {QDate(2004, 11, 14), QDate(2004, 12, 2), QDate(2005, 1, 7)});
    TranslateDates(flow);
    EXPECT_NE(LocateTimelineNode(flow, QStringLiteral("14 November 2004"), false), nullptr);
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("14 October 2004"), false), nullptr);
}

TEST_F(Foreign, HidingTheStripFindsTheDaysOfAnotherLanguage) {
    Made(QLocale::German, {QDate(2004, 3, 14)});
    ShowHideTimelineNodes(flow, false);
    EXPECT_TRUE(flow.Links().front()->Hidden());
}

TEST_F(Foreign, DatesOfTheUsersOwnLanguageStayLetterForLetter) {
    diagram::Node &odd = Month(QStringLiteral("Mar-04"));
    diagram::Node &digits = Month(QStringLiteral("04 2004"));
    diagram::Node &none = Month(QStringLiteral("DIAGRAM"));
    TranslateDates(flow);
    using document::tags::kTheDate;
    EXPECT_EQ(document::GetTag(odd, kTheDate), QStringLiteral("Mar-04"));
    EXPECT_EQ(document::GetTag(digits, kTheDate), QStringLiteral("04 2004"));
    EXPECT_EQ(document::GetTag(none, kTheDate), QStringLiteral("DIAGRAM"));
}

} // namespace timeline::testing
