// The part of a report that belongs to one slice.
#pragma once

#include "output/export/ExportReport.h"
#include "output/report/BuildReport.h"

namespace output {

// What is to be written, and where to; the slices in the order of the report.
struct ReportTask {
    ReportProperties properties;
    ReportOptions options;
    QString Filename;
    std::vector<SliceOutput> slices;
};

// Adds the slice's nodes and picture as the options say, and tells `progress` each step, the last being that
// the file is saved. False when it was given up.
bool BuildSlice(ReportBlocks &blocks, const SliceOutput &slice, const ReportOptions &options,
                ReportProgress &progress);

} // namespace output
