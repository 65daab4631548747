#include "storage/text/TextMark.h"

#include <gtest/gtest.h>

using storage::NeedsMark;
using storage::WithMark;
using storage::WithoutMark;

TEST(TextMark, StandsBeforeWhatASpreadsheetCalculates) {
    for (const char *text : {"=1+1", "+x", "-x", "@sum", "\tx", "\rx", "\nx", "=", "-"})
        EXPECT_EQ(WithMark(QLatin1String(text)), QLatin1Char('\'') + QLatin1String(text));
}

TEST(TextMark, StandsBeforeWhatASpreadsheetTakesForAValue) {
    for (const char *text :
         {"007", "1.5", "1,5", "1e5", "50%", "$5", "1/2", "12:30", "12:30 pm", "2004-01-05", "March 2004",
          "Sept 4", "5 Jan", "1234567890123", "TRUE", "false", " 5", "(5)"})
        EXPECT_TRUE(NeedsMark(QString::fromLatin1(text))) << text;
}

TEST(TextMark, IsMissingBeforeOrdinaryTexts) {
    for (const char *text : {"", "Plan", "Plan 2004", "2004 budget", "3", "0", "42", "a=b", "x-1", "'quoted'",
                             "Room 5a", "truely", "{0123}", "|GROUP=1|"})
        EXPECT_EQ(WithMark(QLatin1String(text)), QLatin1String(text));
}

TEST(TextMark, ComesOffAgainWhateverTheTextIs) {
    for (const char *text : {"", "'", "''", "'=1", "''=1", "'x", "=1", "'007", "007", "''TRUE", "a", "'3"}) {
        const QString before = QLatin1String(text);
        const QString written = WithMark(before);
        EXPECT_EQ(WithoutMark(written), before);
    }
}

TEST(TextMark, OfSomebodyElseIsPartOfTheText) {
    EXPECT_EQ(WithoutMark(u"'quoted'"), QStringLiteral("'quoted'"));
    EXPECT_EQ(WithoutMark(u"'=1"), QStringLiteral("=1"));
}
