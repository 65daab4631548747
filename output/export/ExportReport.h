// The export of a report: everything but the form.
#pragma once

#include "document/MapWindow.h"
#include "output/model/MapOutput.h"

namespace output {

struct ReportOptions {
    bool nodes = true;   // list the nodes
    bool details = true; // list everything that the nodes have; only together with `nodes`
    bool all = false;    // all slices, not the current one alone
    bool map = true;     // a picture of each slice
    bool html = false;   // pages, not rich text

    friend bool operator==(const ReportOptions &, const ReportOptions &) = default;
};

// The options of the last report; `html` goes by the name of the file.
ReportOptions LastReportOptions(const QString &Filename);
void RememberReportOptions(const ReportOptions &options);

// Is told how far an export is, and asked whether to go on.
class ReportProgress {
public:
    virtual ~ReportProgress() = default;
    // A slice begins: its caption, and how many of the slices are done.
    virtual void Slice(const QString &caption, int done, int slices) = 0;
    // How many of the slice's nodes are done.
    virtual void Nodes(int done, int nodes) = 0;
    // What is being done, as a text for the user.
    virtual void Doing(const QString &text) = 0;
    // False gives up.
    virtual bool GoOn() = 0;
};

// Shows nothing and never gives up.
class NoProgress : public ReportProgress {
public:
    void Slice(const QString &, int, int) override {}
    void Nodes(int, int) override {}
    void Doing(const QString &) override {}
    bool GoOn() override { return true; }
};

// Writes the slice of the surface AF, or all slices, to the file. Rich text is one file. Pages of all slices
// are named by PageName: the slices by the index of their surface, a page of links to them by -1, and
// `Filename` itself is a frameset with both. Files that are there already are asked about once, but for
// `Filename`. Nothing is there under these names before everything was written. Gives false when it was given
// up. Error 53 when the delivered frameset is missing.
bool ExportReport(document::MapWindow &window, diagram::Surface &AF, const QString &Filename,
                  const ReportOptions &options, ReportProgress &progress);

} // namespace output
