#include "output/print/Fields.h"

#include <gtest/gtest.h>
#include <QLocale>

namespace print {

namespace {

FieldValues Values() {
    return {3,
            12,
            QStringLiteral("Plan"),
            QStringLiteral("Costs"),
            QDate(2024, 5, 17),
            QStringLiteral("Plan.map")};
}

QString Filled(const char *text) { return FillFields(QString::fromUtf8(text), Values()); }

TEST(Fields, StandForTheirValues) {
    EXPECT_EQ(Filled("&[Page]/&[Pages]"), QStringLiteral("3/12"));
    EXPECT_EQ(Filled("&[Title], &[Slice] (&[File])"), QStringLiteral("Plan, Costs (Plan.map)"));
    EXPECT_EQ(Filled("&[Date]"), QLocale().toString(QDate(2024, 5, 17), QLocale::ShortFormat));
    EXPECT_EQ(Filled("&[PAGE]&[page]"), QStringLiteral("33"));
}

TEST(Fields, EverythingElseStaysText) {
    for (const char *text : {"", "R&d plan", "[Page]", "&Page", "&[Pag]", "&[Page", "& [Page]", "&[]", "&&"})
        EXPECT_EQ(Filled(text), QString::fromUtf8(text));
    EXPECT_EQ(Filled("&&[Page]"), QStringLiteral("&3"));
}

TEST(Fields, AValueIsNotReadAgain) {
    FieldValues values = Values();
    values.title = QStringLiteral("&[Page]");
    EXPECT_EQ(FillFields(QStringLiteral("&[Title]"), values), QStringLiteral("&[Page]"));
}

TEST(Fields, AreToldAsAList) {
    EXPECT_EQ(FieldList(), QStringLiteral("&[Page], &[Pages], &[Title], &[Slice], &[Date], &[File]"));
}

} // namespace

} // namespace print
