#include "output/model/MapOutput.h"

#include "document/clsfrmMain.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "support/Files.h"
#include "timeline/DateText.h"
#include "timeline/Span.h"

#include <QCoreApplication>

namespace output {

namespace {

QString Tr(const char *text) { return QCoreApplication::translate("output", text); }

bool IsDateLink(const diagram::Link &link) { return !link.Selectable() && link.Marked(); }
bool IsOrdinaryLink(const diagram::Link &link) { return link.Selectable() && !link.Marked(); }

// The day that the link leads to; of a node with an end, from there to its last day.
QString DateText(const diagram::Node &node, const diagram::Link &link) {
    const QString day = link.Destination().Text();
    const std::optional<timeline::Span> span =
        &link.Source() == &node ? timeline::SpanOfNode(node) : std::nullopt;
    if (!span || !span->last) return day;
    return day + QStringLiteral(" - ") + timeline::FormatDate(*span->last, timeline::kDayPattern);
}

// A node's links are those that leave it and those that arrive at it. One that arrives has the node itself as
// its destination, and so is listed with the node's own text.
NodeOutput ReadNode(const diagram::Node &node, document::clsfrmMain &settings) {
    NodeOutput read;
    read.text = node.Text();
    read.event = node.Event();
    read.hidden = node.Hidden();
    read.level = settings.Levels().LevelNameForKey(document::GetTag(node, document::tags::kLevel));
    read.groups = settings.Groups().GroupNameForKey(document::GetTag(node, document::tags::kGroup));
    for (const diagram::Link *link : node.Links()) {
        if (IsDateLink(*link)) read.dates << DateText(node, *link);
        if (IsOrdinaryLink(*link)) read.linksTo << link->Destination().Text();
    }
    return read;
}

QString TitleOf(const QString &file) {
    if (file.isEmpty()) return settings::Terms().MAP;
    const QString name = support::FileTitle(file);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

FilterOutput ReadFilter(document::clsfrmMain &settings) {
    FilterOutput read;
    const auto note = [&](bool ticked, QStringList &names, const QString &name) {
        if (ticked) names << name;
        read.leavesOut |= !ticked;
    };
    for (const document::cLevel &level : settings.Levels())
        note(level.Selected, read.levels, level.LevelName);
    for (const document::cGroup &group : settings.Groups())
        note(group.Selected, read.groups, group.GroupName);
    return read;
}

QString ListText(const QStringList &names) {
    return names.isEmpty() ? Tr("none") : names.join(QLatin1String(", "));
}

} // namespace

QByteArray SliceOutput::Picture(diagram::PictureFormat format, const diagram::ExportOptions &options) const {
    return diagram::ExportPicture(*surface, format, options);
}

QSizeF SliceOutput::PictureSize() const { return diagram::PictureSize(*surface); }

SliceOutput ReadSlice(document::MapWindow &window, diagram::Surface &surface) {
    SliceOutput read;
    read.index = surface.Index();
    if (read.index < window.TabStrip().TabCount()) read.caption = window.TabStrip().TabCaption(read.index);
    read.backColour = surface.BackColor();
    read.surface = &surface;
    for (const diagram::Node &node : surface.Nodes())
        read.nodes.push_back(ReadNode(node, window.clsSettings()));
    return read;
}

MapOutput ReadMap(document::MapWindow &window) {
    MapOutput read;
    read.file = window.clsSettings().ShownFile();
    read.title = TitleOf(read.file);
    read.made = window.Desktop().clock.Now();
    read.filter = ReadFilter(window.clsSettings());
    for (const int index : window.AddFlow1().Indices()) {
        if (index == window.TabStrip().TheTab()) read.current = int(read.slices.size());
        read.slices.push_back(ReadSlice(window, window.AddFlow1()[index]));
    }
    return read;
}

QString FilterText(const FilterOutput &filter) {
    if (!filter.leavesOut) return Tr("Everything is shown.");
    return Tr("Levels: %1. Groups: %2.").arg(ListText(filter.levels), ListText(filter.groups));
}

} // namespace output
