// Where the months of the strip and the days in them stand. All in twips.
#pragma once

#include <cstdint>
#include <QHash>
#include <QString>
#include <vector>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace timeline {

// The number that the surface stores; 0 where it stores none.
int ArrangementOf(const diagram::Surface &flow);

// Whether the strip of that arrangement, or of the one that the surface stores, runs from left to right; else
// it runs downwards.
bool RunsRightwards(int arrangement);
bool RunsRightwards(const diagram::Surface &flow);

// How long the slot of a day is in a month of that extent along the strip: without rest.
float SlotOf(float extent, int days);

// Takes the extent along the strip away: the height of a strip that runs downwards, the width of another.
// Nothing for a number that is no arrangement.
void Fold(diagram::Node &month, int arrangement);

// Puts the month at the offset along the strip, and moves the offset to its end, rounded to the nearest
// number, halves to the even one. False, and nothing moved, for a number that is no arrangement.
bool PlaceMonth(const diagram::Surface &flow, diagram::Node &month, int arrangement, std::int32_t &offset);

// Day nodes waiting for their places, by their months and in their order.
class DaysByMonth {
public:
    explicit DaysByMonth(const std::vector<diagram::Node *> &days);
    // Gives the days of the month and forgets them.
    std::vector<diagram::Node *> Take(const QString &month) { return days_.take(month); }

private:
    QHash<QString, std::vector<diagram::Node *>> days_;
};

// Puts each day of the month into its slot and the ends of its links onto it. The slot is as long as the
// rounded month divided by its days, without rest, and the first day stands one slot behind the month's
// beginning. Each day of a folded month takes all of its sliver.
void PositionDateNodes(DaysByMonth &DayNodes, const diagram::Node &MonthNode, bool Horizontal);

} // namespace timeline
