// Where the days of a month lie along the strip. Lengths are twips.
#pragma once

namespace timeline {

// How long the slot of each day is in a month of that length: the rounded length divided by the days, without
// rest.
float SlotOf(float length, int days);

// The slots of a month's days, counted from 1. The first day stands one slot behind the month's beginning, so
// the last one lies about where the next month begins.
//
// `Twips` is the kind of number that the caller reckons in: float for what a surface keeps, else double.
template <typename Twips>
struct DaySlots {
    Twips start; // of the month
    Twips slot;  // the length of each; 0 where all days lie at the start

    Twips Begin(int day) const { return start + Twips(day) * slot; }
    Twips End(int day) const { return Begin(day + 1); }
    Twips Centre(int day) const { return start + (Twips(day) + Twips(0.5)) * slot; }
    // The day in whose slot the place lies: 0 in front of the first one. Only where slots have a length.
    int DayAt(Twips place) const { return int((place - start) / slot); }
};

// Those of a month that begins there and has that length and so many days.
template <typename Twips>
DaySlots<Twips> SlotsIn(Twips start, Twips length, int days) {
    return {start, Twips(SlotOf(float(length), days))};
}

} // namespace timeline
