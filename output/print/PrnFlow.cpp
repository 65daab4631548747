#include "output/print/PrnFlow.h"

#include <algorithm>

namespace print {

void PrnFlow::SetSource(Source source) {
    source_ = std::move(source);
    map_ = PrintedMap();
    page_ = 0;
    Refresh();
}

void PrnFlow::Refresh() {
    PrintedMap now = source_ ? source_(*this) : PrintedMap();
    gone_ = now.slices.empty();
    if (gone_) return;
    for (std::size_t i = 0; i < std::min(now.slices.size(), map_.slices.size()); ++i) {
        now.slices[i].surface->SetxZoom(map_.slices[i].surface->xZoom());
        now.slices[i].surface->SetyZoom(map_.slices[i].surface->yZoom());
    }
    sheets_ = Sheets();
    map_ = std::move(now);
}

diagram::Surface *PrnFlow::Surface() {
    if (map_.slices.empty()) return nullptr;
    const int slice =
        page_ > 0 && page_ <= Pages() ? sheets_.sheets[std::size_t(page_ - 1)].slice : map_.current;
    return map_.slices[std::size_t(slice)].surface.get();
}

void PrnFlow::SetPage(int page) { page_ = Pages() == 0 ? 0 : std::clamp(page, 1, Pages()); }

const PageLayout &PrnFlow::LayoutOf(int page) const {
    return sheets_.layouts[std::size_t(sheets_.sheets[std::size_t(page - 1)].slice)];
}

const PageLayout *PrnFlow::CurrentLayout() const {
    return page_ > 0 && page_ <= Pages() ? &LayoutOf(page_) : nullptr;
}

int PrnFlow::HorizontalPages() const { return CurrentLayout() ? CurrentLayout()->HorizontalPages() : 0; }
int PrnFlow::VerticalPages() const { return CurrentLayout() ? CurrentLayout()->VerticalPages() : 0; }

void PrnFlow::Run() {
    sheets_ = LayOutSlices(map_, *this);
    SetPage(std::max(page_, 1));
    const std::function<void()> &next = Preview ? shown_ : print_;
    if (next) next();
}

} // namespace print
