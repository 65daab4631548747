#include "output/export/ExportReport.h"

#include "output/export/Pages.h"
#include "output/export/ReportNames.h"
#include "output/export/SliceReport.h"
#include "output/rtf/RtfWriter.h"
#include "settings/GetSet.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Val.h"

namespace output {

namespace {

struct OptionRow {
    const char *name; // of the setting
    bool ReportOptions::*option;
};
constexpr OptionRow kOptions[] = {{"ExportNodes", &ReportOptions::nodes},
                                  {"ExportDetails", &ReportOptions::details},
                                  {"ExportAll", &ReportOptions::all},
                                  {"ExportPicture", &ReportOptions::map}};

bool ExportSlice(support::AtomicFile &file, const ReportTask &task, const SliceOutput &slice,
                 ReportProgress &progress) {
    return support::PassOn("ExportSlice", [&] {
        ReportBlocks blocks;
        if (&slice != &task.slices.front()) blocks.push_back(ReportPageBreak{});
        if (!BuildSlice(blocks, slice, task.options, progress)) return false;
        file.Append(RtfWriter(task.properties).Body(blocks));
        return progress.GoOn();
    });
}

// Each slice is written as soon as it is built: the pictures of all need not be held at a time.
bool WriteRichText(const ReportTask &task, ReportProgress &progress) {
    const RtfWriter writer(task.properties);
    support::AtomicFile file(task.Filename);
    file.Append(writer.Begin());
    for (const SliceOutput &slice : task.slices) {
        progress.Slice(slice.caption, int(&slice - task.slices.data()), int(task.slices.size()));
        if (!ExportSlice(file, task, slice, progress)) return false;
    }
    file.Append(writer.End());
    file.Commit();
    return true;
}

ReportTask TaskOf(document::MapWindow &window, diagram::Surface &AF, const QString &Filename,
                  const ReportOptions &options) {
    MapOutput map = ReadMap(window);
    ReportTask task{PropertiesOf(map), options, Filename, std::move(map.slices)};
    task.options.details &= options.nodes;
    if (!options.all)
        std::erase_if(task.slices, [&](const SliceOutput &slice) { return slice.surface != &AF; });
    return task;
}

} // namespace

ReportOptions LastReportOptions(const QString &Filename) {
    ReportOptions options;
    for (const OptionRow &row : kOptions) {
        bool &option = options.*row.option;
        option = support::Val(settings::GetSet(QLatin1String(row.name), option ? "1" : "0")) != 0;
    }
    options.html = !IsRichText(Filename);
    return options;
}

void RememberReportOptions(const ReportOptions &options) {
    for (const OptionRow &row : kOptions)
        settings::SaveSet(QLatin1String(row.name), options.*row.option ? "1" : "0");
}

bool ExportReport(document::MapWindow &window, diagram::Surface &AF, const QString &Filename,
                  const ReportOptions &options, ReportProgress &progress) {
    return support::PassOn("ExportReport", [&] {
        const ReportTask task = TaskOf(window, AF, Filename, options);
        return options.html ? WritePages(window, task, progress) : WriteRichText(task, progress);
    });
}

} // namespace output
