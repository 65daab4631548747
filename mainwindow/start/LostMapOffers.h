// Offers maps that a former run left, in a bar above the surface.
#pragma once

#include "recovery/LostMaps.h"

#include <vector>

class QRect;
class QWidget;

namespace mainwindow {

enum class OfferAnswer;
class frmMain;
class RecoveryBar;

class LostMapOffers {
public:
    // The bar is a child of `place`, made with the first offer.
    LostMapOffers(frmMain &window, QWidget *place) : window_(window), place_(place) {}

    void Add(std::vector<recovery::LostMap> lost);
    // Null while there was nothing to offer.
    RecoveryBar *Bar() const { return bar_; }
    // Puts the bar at the top of the rectangle and gives the height that it takes there, in pixels.
    int TakeTop(const QRect &rectangle);
    // Shows a map that was lost as unsaved work, in the window or, where that would cover another map, in a
    // new one. Gives the window that shows it.
    frmMain *Restore(recovery::LostMap lost);

private:
    void Answer(int row, OfferAnswer answer);
    frmMain *PlaceFor(const QString &path);

    frmMain &window_;
    QWidget *place_;
    RecoveryBar *bar_ = nullptr;
};

} // namespace mainwindow
