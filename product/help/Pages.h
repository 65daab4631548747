// Which piece stands where: the breaks between the pages of a document that is made of pieces.
#pragma once

#include <vector>

namespace product {

// A line of text, a row of a table or a picture: never divided. All lengths in one unit of the caller's
// choice.
struct Piece {
    double height = 0;
    double gap = 0;          // above it, but for the top of a page
    bool keepsNext = false;  // stands on the same page as the piece behind it
    bool startsPage = false; // begins a new page
    // The piece, a table's head, that is shown again above this one at the top of a page; -1 for none.
    int repeat = -1;
};

struct Placed {
    int piece = 0;
    double top = 0;
};
using Page = std::vector<Placed>;

// The pages, each at most `height` high; a piece that is higher than that has a page of its own. A piece is
// parted from the next one that it keeps only where all that hold together are higher than a page.
std::vector<Page> BreakIntoPages(const std::vector<Piece> &pieces, double height);

} // namespace product
