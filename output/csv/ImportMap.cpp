#include "output/csv/ImportMap.h"

#include "diagram/model/Surface.h"
#include "document/BusyWindow.h"
#include "document/clsfrmMain.h"
#include "document/UndoStep.h"
#include "output/csv/CsvRows.h"
#include "support/Error.h"
#include "timeline/Arrange.h"

#include <QFile>
#include <QFileInfo>

namespace output {

namespace {

using document::MapWindow;

void Open(QFile &file) {
    const QFileInfo info(file);
    if (!info.exists())
        support::Raise(support::kErrFileNotFound, QStringLiteral("ImportMap"), file.fileName());
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        support::Raise(support::kErrPathFileAccess, QStringLiteral("ImportMap"), file.fileName());
}

// False when it was given up, here and below.
bool Read(MapWindow &window, const diagram::Surface &flow, const QString &path, CsvContent &content,
          NowAndThen &goOn) {
    QFile file(path);
    Open(file);
    CsvRows rows(file, window.clsSettings(), flow);
    window.DoStatus(QStringLiteral("Reading input file..."));
    constexpr std::size_t kWhole = 100;
    document::Progress progress(window, kWhole);
    while (rows.ReadRow(content)) {
        progress.Show(std::size_t(rows.Percent()));
        if (!goOn.Ask()) return false;
    }
    return true;
}

// Writes all values at once: setting the text by itself could change the size of the node.
diagram::Node &Place(diagram::Surface &flow, diagram::NodeData data) {
    diagram::Node &node = flow.Nodes().Add(data.left, data.top, data.width, data.height);
    data.stack = node.Data().stack;
    flow.Overwrite(node, std::move(data));
    return node;
}

void Place(diagram::Surface &flow, diagram::Node &source, diagram::Node &destination,
           diagram::LinkData data) {
    diagram::Link &link = source.Links().Add(destination);
    data.stack = link.Data().stack;
    data.source = source.Id();
    data.destination = destination.Id();
    flow.Overwrite(link, std::move(data));
}

bool PlaceAll(diagram::Surface &flow, CsvContent &content, NowAndThen &goOn) {
    std::vector<diagram::Node *> nodes;
    nodes.reserve(content.nodes.size());
    for (diagram::NodeData &data : content.nodes) {
        nodes.push_back(&Place(flow, std::move(data)));
        if (!goOn.Ask()) return false;
    }
    const auto at = [&](const CsvEnd &end) -> diagram::Node & {
        return end.present ? *end.present : *nodes[end.position];
    };
    for (CsvLink &link : content.links) {
        Place(flow, at(link.source), at(link.destination), std::move(link.data));
        if (!goOn.Ask()) return false;
    }
    return true;
}

bool GiveUp(MapWindow &window) {
    window.SetProgress(0);
    window.DoStatus(QString());
    return false;
}

} // namespace

bool ImportMap(MapWindow &window, diagram::Surface &Flow, const QString &File, const GoOn &goOn) {
    return support::PassOn("ImportMap", [&] {
        const document::BusyWindow busy(window);
        window.DoStatus(QStringLiteral("Opening input file..."));
        CsvContent content;
        NowAndThen question(goOn);
        if (!Read(window, Flow, File, content, question)) return GiveUp(window);
        document::UndoStep step(Flow);
        if (!PlaceAll(Flow, content, question)) return GiveUp(window);
        timeline::ArrangeTimeLineNodes(window, Flow, timeline::kStoredArrangement);
        step.Close();
        window.SetProgress(0);
        window.clsSettings().Dirty = true;
        window.DoStatus(QStringLiteral("Finishing..."));
        window.DoStatus(QString());
        return true;
    });
}

} // namespace output
