// What the popups of the look bar offer.
#pragma once

#include "mainwindow/Look.h"
#include "widgets/ChoicePopup.h"

namespace document {
class cLevels;
}

namespace mainwindow {

struct LookActions {
    std::function<void(double value)> choose;
    std::function<void()> other; // another colour is asked for
};

// Colours: those of the levels, the palette, the recent ones, others. Anything else: its list. The value that
// the selection has is marked.
std::vector<widgets::ChoiceSection> LookChoices(const LookRow &row, const LookState &state,
                                                const document::cLevels &levels, const LookActions &actions);

} // namespace mainwindow
