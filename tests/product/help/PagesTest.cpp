// The breaks between pages, the widths of columns, and the words of an edition.
#include "product/help/Pages.h"
#include "product/help/RichText.h"
#include "product/help/TableRows.h"
#include "product/help/Terms.h"

#include <gmock/gmock.h>

namespace product {

using testing::ElementsAre;

namespace {

std::vector<std::vector<int>> Numbers(const std::vector<Page> &pages) {
    std::vector<std::vector<int>> numbers;
    for (const Page &page : pages) {
        numbers.emplace_back();
        for (const Placed &placed : page) numbers.back().push_back(placed.piece);
    }
    return numbers;
}

Piece Of(double height, double gap = 0, bool keepsNext = false, int repeat = -1) {
    return {height, gap, keepsNext, false, repeat};
}

settings::ProductTerms Story() {
    settings::ProductTerms terms;
    terms.TITLE = "Storyline";
    terms.MAP = "Book";
    terms.SLICE = "Chapter";
    terms.NODE = "Scene";
    terms.LINK = "Thread";
    return terms;
}

} // namespace

TEST(Pages, NoneForNoPiece) { EXPECT_TRUE(BreakIntoPages({}, 100).empty()); }

TEST(Pages, GapsStandBetweenPiecesButNotAtTheTop) {
    const auto pages = BreakIntoPages({Of(40, 10), Of(40, 10), Of(40, 10)}, 100);
    EXPECT_THAT(Numbers(pages), ElementsAre(ElementsAre(0, 1), ElementsAre(2)));
    EXPECT_EQ(pages[0][0].top, 0);
    EXPECT_EQ(pages[0][1].top, 50);
    EXPECT_EQ(pages[1][0].top, 0);
}

TEST(Pages, HeadingGoesWithWhatFollows) {
    EXPECT_THAT(Numbers(BreakIntoPages({Of(70), Of(10, 0, true), Of(10, 0, true), Of(20)}, 100)),
                ElementsAre(ElementsAre(0), ElementsAre(1, 2, 3)));
}

TEST(Pages, WhatIsTooHighToStayTogetherIsParted) {
    EXPECT_THAT(Numbers(BreakIntoPages({Of(60, 0, true), Of(60, 0, true), Of(30)}, 100)),
                ElementsAre(ElementsAre(0), ElementsAre(1, 2)));
}

TEST(Pages, HigherThanAPageStandsAlone) {
    EXPECT_THAT(Numbers(BreakIntoPages({Of(10), Of(300), Of(10)}, 100)),
                ElementsAre(ElementsAre(0), ElementsAre(1), ElementsAre(2)));
}

TEST(Pages, HeadOfATableIsShownAgainOnEachPageOfIt) {
    EXPECT_THAT(
        Numbers(BreakIntoPages(
            {Of(50), Of(10, 0, true), Of(40, 0, false, 1), Of(60, 0, false, 1), Of(60, 0, false, 1)}, 100)),
        ElementsAre(ElementsAre(0, 1, 2), ElementsAre(1, 3), ElementsAre(1, 4)));
}

TEST(Pages, HeadOfATableIsLeftOutAboveARowThatFillsThePage) {
    EXPECT_THAT(Numbers(BreakIntoPages({Of(10, 0, true), Of(20, 0, false, 0), Of(95, 0, false, 0)}, 100)),
                ElementsAre(ElementsAre(0, 1), ElementsAre(2)));
}

TEST(Pages, PieceThatStartsAPageDoes) {
    Piece starts = Of(10);
    starts.startsPage = true;
    EXPECT_THAT(Numbers(BreakIntoPages({Of(10), starts}, 100)), ElementsAre(ElementsAre(0), ElementsAre(1)));
}

TEST(ColumnWidths, NarrowColumnKeepsWhatItWants) {
    EXPECT_THAT(ColumnWidths({50, 2000}, 400), ElementsAre(50, 350));
}

TEST(ColumnWidths, WideOnesShare) { EXPECT_THAT(ColumnWidths({900, 900}, 400), ElementsAre(200, 200)); }

TEST(ColumnWidths, FillTheWidthWhateverIsWanted) { EXPECT_THAT(ColumnWidths({10}, 400), ElementsAre(400)); }

TEST(Anchor, IsTheHeadingInLowerCaseWithHyphens) {
    EXPECT_EQ(AnchorOf("Dates, and the timeline!"), "dates-and-the-timeline");
}

TEST(Terms, ReplaceWholeWordsInSingularAndPlural) {
    EXPECT_EQ(InTermsOf(Story(), "A map of slices. Nodes and the links; hyperlinks, mapped."),
              "A book of chapters. Scenes and the threads; hyperlinks, mapped.");
}

TEST(Terms, LeaveTheVerb) {
    EXPECT_EQ(InTermsOf(Story(), "link two nodes, link the selected node: a link"),
              "link two scenes, link the selected scene: a thread");
}

TEST(Terms, LeaveCodeAndAddressesButForFoldersOfTheProgram) {
    EXPECT_EQ(
        InTermsOf(Story(), "Velmora `velmora-cli map` `~/state/Velmora/map` ![a map](pictures/map.png)"),
        "Storyline `velmora-cli map` `~/state/Storyline/map` ![a book](pictures/map.png)");
}

TEST(Terms, MissingOnesChangeNothing) {
    settings::ProductTerms terms = Story();
    terms.NODE = QString();
    EXPECT_EQ(InTermsOf(terms, "a node of a map"), "a node of a book");
}

} // namespace product
