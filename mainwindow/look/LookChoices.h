// What the popups of the look bar offer.
#pragma once

#include "mainwindow/look/Look.h"
#include "widgets/ChoicePopup.h"

namespace document {
class cLevels;
}

namespace mainwindow {

struct LookActions {
    std::function<void(double value)> choose;
    std::function<void()> other; // another colour is asked for
};

// How links are routed that are drawn from now on.
struct NewLinkActions {
    int now; // a link style, or kAutomaticStyle
    std::function<void(int style)> set;
};

// Colours: those of the levels, the palette, the recent ones, others. Anything else: its list. The value that
// the selection has is marked.
std::vector<widgets::ChoiceSection> LookChoices(const LookRow &row, const LookState &state,
                                                const document::cLevels &levels, const LookActions &actions);
// Below the list of routings: new links like the selected ones, if these are alike, or the best for each.
widgets::ChoiceSection NewLinkChoices(const LookState &routing, const NewLinkActions &actions);

} // namespace mainwindow
