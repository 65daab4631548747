// The form for the date of a node.
#include "timeline/setup/frmDate.h"

#include "settings/Settings.h"
#include "tests/BritishLocale.h"

#include <gtest/gtest.h>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTest>

namespace timeline {

namespace {

struct DateForm : ::testing::Test {
    const tests::BritishLocale british;
    DateForm() {
        argument.view.today = QDate(2024, 5, 17);
        settings::ProductTerms terms;
        terms.NODE = QStringLiteral("Node");
        settings::SetTerms(terms);
    }
    ~DateForm() override { settings::SetTerms({}); }
    void Open() {
        form = std::make_unique<frmDate>(argument, nullptr);
        form->show();
    }
    QLineEdit &Text() { return *form->findChild<QLineEdit *>(QStringLiteral("txtDate")); }
    QCalendarWidget &Calendar() { return *form->findChild<QCalendarWidget *>(); }
    QPushButton &Ok() { return *form->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok); }
    QLabel &Meaning() { return *form->findChild<QLabel *>(QStringLiteral("lblMeaning")); }
    void Type(const char *text) {
        Text().selectAll();
        QTest::keyClicks(&Text(), QString::fromLatin1(text));
    }

    DateFormArgument argument;
    std::unique_ptr<frmDate> form;
};

} // namespace

TEST_F(DateForm, ShowsTheNodesDateElseToday) {
    Open();
    EXPECT_EQ(Text().text(), QStringLiteral("17 May 2024"));
    argument.date = QDate(2004, 3, 14);
    Open();
    EXPECT_EQ(Text().text(), QStringLiteral("14 March 2004"));
    EXPECT_EQ(Calendar().selectedDate(), QDate(2004, 3, 14));
}

TEST_F(DateForm, TheCalendarGoesAsFarAsDatesDo) {
    Open();
    EXPECT_EQ(Calendar().minimumDate(), QDate(100, 1, 1));
    EXPECT_EQ(Calendar().maximumDate(), QDate(3099, 12, 31));
}

TEST_F(DateForm, TheDateIsSelectedSoThatTypingReplacesIt) {
    Open();
    EXPECT_EQ(form->focusWidget(), &Text());
    EXPECT_EQ(Text().selectedText(), QStringLiteral("17 May 2024"));
}

TEST_F(DateForm, ADateIsTypedAsPeopleWriteIt) {
    const std::pair<const char *, QDate> rows[] = {{"2 dec 2026", QDate(2026, 12, 2)},
                                                   {"Mar-04", QDate(2004, 3, 1)},
                                                   {"03 2004", QDate(2004, 3, 1)},
                                                   {"14/3/2004", QDate(2004, 3, 14)}};
    for (const auto &[text, date] : rows) {
        Open();
        Type(text);
        EXPECT_EQ(Calendar().selectedDate(), date) << text;
        QTest::keyClick(&Text(), Qt::Key_Return);
        EXPECT_EQ(form->result(), QDialog::Accepted);
        EXPECT_EQ(argument.date, date) << text;
    }
}

TEST_F(DateForm, WhatIsUnderstoodIsShownInFullWhileItIsTyped) {
    Open();
    const QLabel &meaning = Meaning();
    EXPECT_EQ(meaning.text(), QStringLiteral("Friday, 17 May 2024"));
    Type("+2w");
    EXPECT_EQ(meaning.text(), QStringLiteral("Friday, 31 May 2024"));
    EXPECT_EQ(Calendar().selectedDate(), QDate(2024, 5, 31));
    Type("nonsense");
    EXPECT_EQ(meaning.text(), QStringLiteral("This is not understood as a date"));
    EXPECT_EQ(Text().accessibleDescription(), meaning.text());
    EXPECT_FALSE(Ok().isEnabled());
    Type("1 jun");
    EXPECT_EQ(meaning.text(), QStringLiteral("Saturday, 1 June 2024"));
    Ok().click();
    EXPECT_EQ(argument.date, QDate(2024, 6, 1));
}

TEST_F(DateForm, WaitsForADate) {
    Open();
    Type("31 February 2004");
    EXPECT_FALSE(Ok().isEnabled());
    QTest::keyClick(&Text(), Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    Type("March 3100");
    EXPECT_FALSE(Ok().isEnabled());
    Type("March 3099");
    EXPECT_TRUE(Ok().isEnabled());
}

TEST_F(DateForm, TheCalendarWritesTheText) {
    Open();
    Q_EMIT Calendar().clicked(QDate(2024, 6, 2));
    EXPECT_EQ(Text().text(), QStringLiteral("02 June 2024"));
    Q_EMIT Calendar().activated(QDate(2024, 6, 3));
    EXPECT_EQ(argument.date, QDate(2024, 6, 3));
}

TEST_F(DateForm, WithoutTheTickThereIsNoDate) {
    argument.date = QDate(2004, 3, 14);
    Open();
    Type("nonsense");
    form->findChild<QCheckBox *>()->click();
    EXPECT_FALSE(Text().isEnabled());
    Ok().click();
    EXPECT_FALSE(argument.date.has_value());
}

TEST_F(DateForm, AnEndIsShownTypedAndTakenAway) {
    argument.date = QDate(2004, 3, 14);
    argument.last = QDate(2004, 4, 2);
    Open();
    EXPECT_EQ(Text().text(), QStringLiteral("14 March 2004 - 02 April 2004"));
    EXPECT_EQ(Meaning().text(), QStringLiteral("Sunday, 14 March 2004 to Friday, 2 April 2004, 20 days"));
    Type("14/3/2004 for 2w");
    EXPECT_EQ(Calendar().selectedDate(), QDate(2004, 3, 14));
    Ok().click();
    EXPECT_EQ(argument.date, QDate(2004, 3, 14));
    EXPECT_EQ(argument.last, QDate(2004, 3, 27));
    Open();
    Type("2 Apr 2004 - 14 Mar 2004");
    EXPECT_FALSE(Ok().isEnabled());
    EXPECT_EQ(Meaning().text(), QStringLiteral("The end lies before the beginning"));
    Type("14 Mar 2004");
    Ok().click();
    EXPECT_FALSE(argument.last.has_value());
}

TEST_F(DateForm, TheCalendarMovesAnEndAlong) {
    argument.date = QDate(2004, 3, 14);
    argument.last = QDate(2004, 3, 20);
    Open();
    Q_EMIT Calendar().clicked(QDate(2004, 6, 2));
    EXPECT_EQ(Text().text(), QStringLiteral("02 June 2004 - 08 June 2004"));
}

TEST_F(DateForm, NodesWithDifferentEndsBeginWithAnEmptyBox) {
    argument.date = QDate(2004, 3, 14);
    argument.last = QDate(2004, 3, 20);
    argument.several = {QDate(2004, 3, 14), QDate(2004, 3, 14)};
    argument.lastsDiffer = true;
    Open();
    EXPECT_TRUE(Text().text().isEmpty());
    argument.lastsDiffer = false;
    Open();
    EXPECT_EQ(Text().text(), QStringLiteral("14 March 2004 - 20 March 2004"));
}

TEST_F(DateForm, CancelKeepsTheDate) {
    argument.date = QDate(2004, 3, 14);
    Open();
    Type("1 May 2004");
    QTest::keyClick(&Text(), Qt::Key_Escape);
    EXPECT_EQ(argument.date, QDate(2004, 3, 14));
}

TEST_F(DateForm, SeveralNodesOfOneDateShowIt) {
    argument.date = QDate(2004, 3, 14);
    argument.several = {argument.date, argument.date};
    Open();
    EXPECT_EQ(Text().text(), QStringLiteral("14 March 2004"));
    EXPECT_TRUE(Ok().isEnabled());
}

TEST_F(DateForm, SeveralNodesOfDifferentDatesWaitForOne) {
    argument.date = QDate(2004, 3, 14);
    argument.several = {argument.date, std::nullopt, QDate(2004, 5, 1)};
    Open();
    EXPECT_TRUE(Text().text().isEmpty());
    EXPECT_EQ(Meaning().text(), QStringLiteral("3 Nodes of different dates; +2w moves each"));
    EXPECT_FALSE(Ok().isEnabled());
    Type("1 june 2004");
    Ok().click();
    EXPECT_EQ(argument.date, QDate(2004, 6, 1));
    EXPECT_FALSE(argument.step);
}

TEST_F(DateForm, AStepMovesEachOfSeveralNodes) {
    argument.date = QDate(2004, 3, 14);
    argument.several = {argument.date, QDate(2004, 5, 1)};
    Open();
    Type("+2W");
    EXPECT_EQ(Meaning().text(), QStringLiteral("Each Node moves: 2 weeks later"));
    EXPECT_EQ(Text().accessibleDescription(), Meaning().text());
    Ok().click();
    EXPECT_FALSE(argument.date);
    EXPECT_EQ(argument.step, (DateStep{2, DateStep::Unit::Week}));
}

TEST_F(DateForm, AStepTellsThatUndatedNodesStay) {
    argument.several = {std::nullopt, QDate(2004, 5, 1)};
    Open();
    Type("-1d");
    EXPECT_EQ(Meaning().text(), QStringLiteral("Each dated Node moves: one day earlier"));
    Type("1 june 2004");
    Ok().click();
    EXPECT_FALSE(argument.step) << "typed before";
}

TEST_F(DateForm, AStepOfUndatedNodesIsADayFromToday) {
    argument.several = {std::nullopt, std::nullopt};
    Open();
    Type("+2w");
    EXPECT_EQ(Meaning().text(), QStringLiteral("Friday, 31 May 2024"));
    Ok().click();
    EXPECT_EQ(argument.date, QDate(2024, 5, 31));
}

TEST_F(DateForm, AStepBeyondTheYearsOfDatesIsRefused) {
    argument.several = {QDate(2004, 5, 1), QDate(3099, 5, 1)};
    Open();
    Type("+1y");
    EXPECT_EQ(Meaning().text(), QStringLiteral("Dates go from the year 100 to 3099"));
    EXPECT_FALSE(Ok().isEnabled());
    Type("+1m");
    EXPECT_TRUE(Ok().isEnabled());
}

TEST_F(DateForm, WithoutTheTickAStepCountsNothing) {
    argument.several = {QDate(2004, 5, 1), QDate(2004, 6, 1)};
    Open();
    Type("+1m");
    form->findChild<QCheckBox *>()->click();
    Ok().click();
    EXPECT_FALSE(argument.step);
    EXPECT_FALSE(argument.date);
}

} // namespace timeline
