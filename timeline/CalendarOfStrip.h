// The years, quarters and weeks of a strip of months, as they are drawn beside it.
#pragma once

#include "diagram/model/Calendar.h"

namespace timeline {

// Of the months in sight where they stand; empty while there is none. Today is that of the desktop. Bands lie
// on the side of the strip that faces the nodes, above one in the middle, so that they don't change sides
// when a node is moved.
diagram::Calendar CalendarOfStrip(const diagram::Surface &flow);

// Whether the node was lined up as a bar of a strip that runs to the right.
bool IsBar(const diagram::Node &node);

// The place of the bands beside a strip that lies at `strip` (twips); empty where they aren't shown.
QRectF BandsBeside(const diagram::Surface &flow, const QRectF &strip);

// What the calendar shows, kept in the template node, which is made where it is missing.
enum class CalendarPart { Bands, Weekends, TodayEverywhere };
bool Shows(const diagram::Surface &flow, CalendarPart part);
// Inside the group of changes that the caller has opened.
void SetShows(diagram::Surface &flow, CalendarPart part, bool on);

} // namespace timeline
