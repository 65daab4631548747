#include "timeline/DaySlots.h"

#include "support/Val.h"

#include <cstdint>

namespace timeline {

float SlotOf(float length, int days) {
    const std::int32_t slot = support::CLng(double(length)) / days;
    return float(slot);
}

} // namespace timeline
