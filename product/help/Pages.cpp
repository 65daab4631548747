#include "product/help/Pages.h"

namespace product {

namespace {

class Breaker {
public:
    Breaker(const std::vector<Piece> &pieces, double height) : pieces_(pieces), height_(height) {}

    std::vector<Page> Run() {
        for (int i = 0; i < int(pieces_.size()); ++i) {
            if (pieces_[i].startsPage || NeedsPage(i)) TurnPage(i);
            Place(i);
        }
        if (!page_.empty()) pages_.push_back(page_);
        return pages_;
    }

private:
    // The height of what must stand together from the piece on, with the gaps between.
    double Together(int from) const {
        double height = pieces_[from].height;
        for (int i = from; pieces_[i].keepsNext && i + 1 < int(pieces_.size()); ++i)
            height += pieces_[i + 1].gap + pieces_[i + 1].height;
        return height;
    }
    bool Fits(double height, int piece) const { return bottom_ + pieces_[piece].gap + height <= height_; }
    bool NeedsPage(int piece) const {
        if (page_.empty() || !Fits(pieces_[piece].height, piece)) return true;
        const double together = Together(piece);
        return together <= height_ && !Fits(together, piece);
    }
    void TurnPage(int piece) {
        if (!page_.empty()) pages_.push_back(page_);
        page_.clear();
        bottom_ = 0;
        const int head = pieces_[piece].repeat;
        if (head >= 0 && pieces_[head].height + pieces_[piece].gap + pieces_[piece].height <= height_)
            Place(head);
    }
    void Place(int piece) {
        const double top = page_.empty() ? 0 : bottom_ + pieces_[piece].gap;
        page_.push_back({piece, top});
        bottom_ = top + pieces_[piece].height;
    }

    const std::vector<Piece> &pieces_;
    const double height_;
    std::vector<Page> pages_;
    Page page_;
    double bottom_ = 0;
};

} // namespace

std::vector<Page> BreakIntoPages(const std::vector<Piece> &pieces, double height) {
    return Breaker(pieces, height).Run();
}

} // namespace product
