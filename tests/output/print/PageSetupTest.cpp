#include "output/print/PageSetup.h"

#include "settings/GetSet.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace print {

namespace {

class PageSetupTest : public ::testing::Test {
protected:
    support::testing::ScriptedDesktop desktop;
};

TEST_F(PageSetupTest, WithoutSettingsEverythingStays) {
    PageSetup setup;
    setup.Header = QStringLiteral("Above");
    setup.Orientation = kLandscape;
    setup.paper = QStringLiteral("A5");
    LoadSetup(setup);
    EXPECT_EQ(setup.Header, QStringLiteral("Above"));
    EXPECT_EQ(setup.Orientation, kLandscape);
    EXPECT_EQ(setup.paper, QStringLiteral("A5"));
    EXPECT_TRUE(setup.FitToPage);
}

TEST_F(PageSetupTest, IsReadBackAsItWasSaved) {
    PageSetup setup;
    setup.Header = QStringLiteral("&[Title]");
    setup.Footer = QStringLiteral("&[Page]");
    setup.Orientation = kLandscape;
    setup.FitToPage = false;
    setup.paper = QStringLiteral("Letter");
    setup.margins = {1, 2.5, 3, 4};
    setup.marks = setup.keepWhole = setup.grid = true;
    setup.slices = Slices::All;
    SaveSetup(setup);
    PageSetup read;
    LoadSetup(read);
    EXPECT_EQ(read.Header, setup.Header);
    EXPECT_EQ(read.Footer, setup.Footer);
    EXPECT_EQ(read.Orientation, kLandscape);
    EXPECT_FALSE(read.FitToPage);
    EXPECT_EQ(read.paper, setup.paper);
    EXPECT_EQ(read.margins, setup.margins);
    EXPECT_TRUE(read.marks && read.keepWhole && read.grid);
    EXPECT_EQ(read.slices, Slices::All);
}

TEST_F(PageSetupTest, HasTheNamesAndTextsThatOthersRead) {
    PageSetup setup;
    setup.Header = QStringLiteral("H");
    setup.Footer = QStringLiteral("F");
    SaveSetup(setup);
    EXPECT_EQ(settings::GetSet(QStringLiteral("FitToPage")), QStringLiteral("True"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("Header")), QStringLiteral("H"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("Footer")), QStringLiteral("F"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("Ori")), QStringLiteral("1"));
    setup.FitToPage = false;
    setup.Orientation = kLandscape;
    SaveSetup(setup);
    EXPECT_EQ(settings::GetSet(QStringLiteral("FitToPage")), QStringLiteral("False"));
    EXPECT_EQ(settings::GetSet(QStringLiteral("Ori")), QStringLiteral("2"));
}

TEST_F(PageSetupTest, NonsenseCountsAsNotStored) {
    for (const char *name : {"FitToPage", "Ori", "PagePaper", "PageMargins", "PageSlices", "PageMarks"})
        settings::SaveSet(QLatin1String(name), QStringLiteral("7 of them"));
    PageSetup setup;
    setup.paper = QStringLiteral("A3");
    LoadSetup(setup);
    EXPECT_TRUE(setup.FitToPage);
    EXPECT_EQ(setup.Orientation, kPortrait);
    EXPECT_EQ(setup.paper, QStringLiteral("A3"));
    EXPECT_EQ(setup.margins, QMarginsF(15, 15, 15, 15));
    EXPECT_EQ(setup.slices, Slices::This);
    for (const char *margins : {"1 2 3", "1 2 3 -1", "1 2 3 nan", "1 2 3 101", "1 2 3 4 5"}) {
        settings::SaveSet(QStringLiteral("PageMargins"), QLatin1String(margins));
        LoadSetup(setup);
        EXPECT_EQ(setup.margins, QMarginsF(15, 15, 15, 15)) << margins;
    }
}

TEST_F(PageSetupTest, SlicesChosenOneByOneAreNotKept) {
    PageSetup setup;
    setup.slices = Slices::All;
    SaveSetup(setup);
    setup.slices = Slices::Chosen;
    setup.chosen = {1};
    setup.range = {2, 3};
    SaveSetup(setup);
    PageSetup read;
    LoadSetup(read);
    EXPECT_EQ(read.slices, Slices::All);
    EXPECT_TRUE(read.chosen.empty());
    EXPECT_EQ(read.range, PageRange());
}

TEST(Papers, HaveNamesAndSizes) {
    EXPECT_EQ(PaperSize(QStringLiteral("A4")), QSizeF(210, 297));
    EXPECT_NEAR(PaperSize(QStringLiteral("Letter")).width(), 215.9, 0.01);
    EXPECT_EQ(PaperSize(QStringLiteral("Napkin")), QSizeF(210, 297));
    for (const QString &key : PaperKeys()) EXPECT_FALSE(PaperName(key).isEmpty());
    EXPECT_TRUE(PaperKeys().contains(UsualPaper()));
}

struct RangeRow {
    const char *text;
    PageRange range;
    const char *shown;
};

TEST(Ranges, AreReadAndWritten) {
    for (const RangeRow &row : {RangeRow{"", {0, 0}, ""},
                                {" 2 ", {2, 2}, "2"},
                                {"2-4", {2, 4}, "2-4"},
                                {"2 - 4", {2, 4}, "2-4"},
                                {"-3", {0, 3}, "-3"},
                                {"5-", {5, 0}, "5-"},
                                {"-", {0, 0}, ""}}) {
        PageRange range{9, 9};
        EXPECT_TRUE(ReadRange(QLatin1String(row.text), range)) << row.text;
        EXPECT_EQ(range, row.range) << row.text;
        EXPECT_EQ(RangeText(range), QLatin1String(row.shown));
    }
}

TEST(Ranges, TakeNothingElse) {
    for (const char *text : {"0", "0-2", "3-2", "a", "1,2", "1-2-3", "-0", "1234567", "1 2"}) {
        PageRange range{9, 9};
        EXPECT_FALSE(ReadRange(QLatin1String(text), range)) << text;
        EXPECT_EQ(range, (PageRange{9, 9})) << text;
    }
}

TEST(Ranges, HoldTheirEnds) {
    EXPECT_TRUE((PageRange{2, 3}).Holds(2) && (PageRange{2, 3}).Holds(3));
    EXPECT_FALSE((PageRange{2, 3}).Holds(1) || (PageRange{2, 3}).Holds(4));
    EXPECT_TRUE((PageRange{0, 0}).Holds(1000) && (PageRange{3, 0}).Holds(1000));
}

} // namespace

} // namespace print
