// The lines of a report, made of a map that was read.
#pragma once

#include "output/model/MapOutput.h"
#include "output/report/Report.h"

namespace output {

// With the fonts of the product's settings, and on the paper that is usual where the user is.
ReportProperties PropertiesOf(const MapOutput &map);

// A node's entry and the gap behind it. Hidden nodes have entries, too, if they are asked for.
void AddNode(ReportBlocks &blocks, const NodeOutput &node, bool details);
// The picture of the slice below its caption. The slice's surface must live until the picture was written.
void AddPicture(ReportBlocks &blocks, const SliceOutput &slice);

} // namespace output
