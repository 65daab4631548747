// The export of a report: everything but the form.
#pragma once

#include "document/MapWindow.h"
#include "output/model/MapOutput.h"

namespace output {

struct ReportOptions {
    bool nodes = true;   // list the nodes
    bool details = true; // with everything that there is of them; only together with nodes
    bool all = false;    // all slices, not the current one alone
    bool map = true;     // a picture of each slice
    bool html = false;   // pages, not rich text

    friend bool operator==(const ReportOptions &, const ReportOptions &) = default;
};

// The options of the last report; `html` goes by the name of the file.
ReportOptions LastReportOptions(const QString &Filename);
void RememberReportOptions(const ReportOptions &options);

// What the user is shown, and asked whether to go on.
class ReportProgress {
public:
    virtual ~ReportProgress() = default;
    // A slice of several begins: its caption, how many are done, of how many.
    virtual void Slice(const QString &caption, int done, int slices) = 0;
    // Nodes of the slice that are done, of how many.
    virtual void Nodes(int done, int nodes) = 0;
    virtual void Doing(const QString &text) = 0;
    virtual bool GoOn() = 0;
};

// Writes the slice of the surface AF, or all slices, to the file. Rich text is one file. Pages of all slices
// are named by PageName: the slices by the index of their surface, a page of links to them by -1, and
// `Filename` itself is a frameset with both. Files that are there already are asked about once, but for
// `Filename`. Nothing is there under these names before everything was written. Gives false when it was given
// up. Error 53 when the delivered frameset is missing.
bool ExportReport(document::MapWindow &window, diagram::Surface &AF, const QString &Filename,
                  const ReportOptions &options, ReportProgress &progress);

} // namespace output
