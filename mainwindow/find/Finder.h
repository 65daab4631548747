// Finding and replacing texts over all slices of a window.
#pragma once

#include "document/FindText.h"

#include <vector>

class QRect;
class QWidget;

namespace mainwindow {

class FindBar;
class frmMain;

class Finder {
public:
    // The bar is a child of `place`.
    Finder(frmMain &window, QWidget *place);

    // Shows the bar, with the row for the replacement or without, and the hit nearest to where one is.
    void Open(bool replacing);
    void Close();
    // The next hit in that direction (1 or -1); begins again at the end. Opens the bar while nothing is
    // sought.
    void Next(int step);
    void Replace(bool all);
    // Puts the bar at the bottom of the rectangle and gives the height that it takes there, in pixels.
    int TakeBottom(const QRect &rectangle);

private:
    std::vector<document::FindHit> Hits() const;
    void ShowHits();
    void ShowHit(const std::vector<document::FindHit> &hits, std::ptrdiff_t at);

    frmMain &window_;
    FindBar *bar_;
    document::FindHit hit_; // shown last
};

} // namespace mainwindow
