#include "diagram/model/DayStrip.h"

namespace diagram {

DayStrip &DayStrip::None() {
    static DayStrip none;
    return none;
}

} // namespace diagram
