// The tints in which the calendar of a strip of days is drawn on a page.
#pragma once

#include "support/MixColours.h"

#include <cstdlib>
#include <QRgb>

namespace diagram {

constexpr QRgb kTodayInk = qRgb(207, 34, 126);

class CalendarInk {
public:
    // `wanted` is the ink, unless it can't be read on that paper.
    CalendarInk(QRgb paper, QRgb wanted) : paper_(paper), ink_(Readable(paper, wanted)) {}

    QRgb Text() const { return ink_; }
    QRgb Quarter() const { return Tint(0.07); }
    QRgb QuarterText() const { return Tint(0.8); }
    QRgb Year() const { return Tint(0.14); }
    QRgb YearText() const { return Tint(1); }
    QRgb Weekend() const { return Tint(0.06); }
    QRgb Week() const { return Tint(0.45); }
    QRgb LaneLine() const { return Tint(0.16); }
    QRgb LaneText() const { return Tint(0.62); }
    QRgb Fold() const { return Tint(0.16); }
    QRgb Crease() const { return Tint(0.35); }

private:
    static QRgb Readable(QRgb paper, QRgb wanted) {
        constexpr int kLeastContrast = 90; // in grey values
        if (std::abs(qGray(paper) - qGray(wanted)) >= kLeastContrast) return wanted;
        return qGray(paper) < 128 ? qRgb(235, 240, 245) : qRgb(40, 50, 60);
    }
    QRgb Tint(double share) const { return support::Mix(paper_, ink_, share); }

    QRgb paper_, ink_;
};

} // namespace diagram
