// What is drawn beside the strip of months as plain shapes of a slide: bands, weekends, lanes, today, folded
// months.
#pragma once

#include "diagram/model/Calendar.h"

namespace diagram {
class Node;
}

namespace powerpoint {

struct ShapeContext;

// Below all nodes. `area`, in twips, is what the slide shows.
void WriteCalendar(ShapeContext &context, const diagram::Calendar &calendar, const QRectF &area);
// The sliver of the fold in the place of its months, of which `month` is one.
void WriteFold(ShapeContext &context, const diagram::Calendar &calendar, const diagram::Calendar::Fold &fold,
               const diagram::Node &month);

} // namespace powerpoint
