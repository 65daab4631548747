// The part of a report that one slice is.
#pragma once

#include "output/export/ExportReport.h"
#include "output/report/BuildReport.h"

namespace output {

// What is to be written, and where to. The slices come in their order.
struct ReportTask {
    ReportProperties properties;
    ReportOptions options;
    QString Filename;
    std::vector<SliceOutput> slices;
};

// Adds the slice's nodes and picture as the options say, up to the moment in which the file is written. False
// when it was given up.
bool BuildSlice(ReportBlocks &blocks, const SliceOutput &slice, const ReportOptions &options,
                ReportProgress &progress);

} // namespace output
