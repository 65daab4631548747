// The control that shows and prints slices, without its window: what is printed and how, and which page is
// shown.
#pragma once

#include "output/print/PageSetup.h"
#include "output/print/PrintedMap.h"
#include "output/print/PrintSlices.h"

#include <functional>

namespace print {

// Works on copies of the slices: their xZoom and yZoom scale them on paper, and nothing of it reaches the
// map.
class PrnFlow : public PageSetup {
public:
    // Gives the map as it stands, with the slices that such a setup prints; one without slices once it is
    // gone.
    using Source = std::function<PrintedMap(const PageSetup &setup)>;

    int Zoom = 0;         // of the preview, per cent; 0 before one was chosen
    bool Preview = false; // what Run does: true shows, false prints
    bool Display = true;  // whether the preview is seen
    QString DocumentName; // in the printer's queue

    // From now on that map, from its first page.
    void SetSource(Source source);
    // Takes the map as it stands now and keeps the scaling; its pages come with Run. A map that is gone stays
    // as it was last.
    void Refresh();
    // Whether the map, or the slice that counts as this one, was gone at the last Refresh.
    bool IsGone() const { return gone_; }

    // The slice of the current page, or the selected one while there are no pages; null without any slice.
    diagram::Surface *Surface();
    int Pages() const { return int(sheets_.sheets.size()); }
    int Page() const { return page_; } // the current one, from 1; 0 without any
    void SetPage(int page);            // the nearest one that there is
    // Of the slice of the current page.
    int HorizontalPages() const;
    int VerticalPages() const;
    void NextPage() { SetPage(page_ + 1); }
    void PreviousPage() { SetPage(page_ - 1); }

    // Lays the pages out anew; then, with Preview, tells Shown, else prints them.
    void Run();
    void OnShown(std::function<void()> shown) { shown_ = std::move(shown); }
    void OnPrint(std::function<void()> print) { print_ = std::move(print); }

    PrintedMap &Map() { return map_; }
    const Sheets &TheSheets() const { return sheets_; }
    const PageLayout &LayoutOf(int page) const; // from 1

private:
    const PageLayout *CurrentLayout() const;

    Source source_;
    PrintedMap map_;
    Sheets sheets_;
    int page_ = 0;
    bool gone_ = false;
    std::function<void()> shown_, print_;
};

} // namespace print
