// Reports as pages: one for a slice, or one for each slice with a frameset around them.
#pragma once

#include "output/export/SliceReport.h"

namespace output {

// False when it was given up, or the files that are there are to stay.
bool WritePages(document::MapWindow &window, const ReportTask &task, ReportProgress &progress);

} // namespace output
