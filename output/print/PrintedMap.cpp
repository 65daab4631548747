#include "output/print/PrintedMap.h"

#include "diagram/model/Routing.h"
#include "diagram/model/ScreenValues.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "settings/Settings.h"

#include <algorithm>
#include <QFileInfo>

namespace print {

namespace {

diagram::LinkData Stored(const diagram::Link &link) {
    link.OwnBends(); // both bring what is stored up to date
    link.Route();
    return link.Data();
}

void CopyLook(const diagram::Surface &from, diagram::Surface &to) {
    to.Screen().SetGridSize(from.Screen().GridSize());
    to.Screen().SetGridColor(from.Screen().GridColor());
    to.Screen().SetGridStyle(from.Screen().GridStyle());
    to.Screen().SetSize(from.Screen().Width(), from.Screen().Height());
    to.Screen().SetShowsBothTexts(from.Screen().ShowsBothTexts());
}

} // namespace

std::unique_ptr<diagram::Surface> CopyOf(const diagram::Surface &surface) {
    auto copy = std::make_unique<diagram::Surface>();
    diagram::SurfaceData data = surface.Data();
    data.xZoom = data.yZoom = kPlainZoom;
    copy->Overwrite(std::move(data));
    const diagram::RoutesAsTold told(*copy);
    copy->SetLoading(true);
    for (const diagram::Node &node : surface.Nodes()) copy->Restore(node.Id(), node.Data());
    for (const auto &link : surface.Links()) copy->Restore(link->Id(), Stored(*link));
    CopyLook(surface, *copy);
    copy->SetLoading(false);
    return copy;
}

PrintedSlice::PrintedSlice(std::unique_ptr<diagram::Surface> copy, QString name)
    : surface(std::move(copy)), scene(std::make_unique<diagram::Scene>(*surface)), caption(std::move(name)) {}

PrintedSlice::~PrintedSlice() = default;

bool IsPrinted(const PageSetup &setup, int slice, int current) {
    if (setup.slices == Slices::All) return true;
    if (setup.slices == Slices::This) return slice == current;
    return std::ranges::find(setup.chosen, slice) != setup.chosen.end();
}

PrintedMap CopyMap(document::MapWindow &window, const PageSetup &setup, int current) {
    PrintedMap map;
    const QFileInfo file(window.clsSettings().ShownFile());
    map.file = file.fileName();
    map.title = map.file.isEmpty() ? settings::ReplaceTerms(QStringLiteral("@MAP")) : file.completeBaseName();
    map.made = window.Desktop().clock.Now();
    map.current = current;
    int tab = 0;
    for (const int index : window.AddFlow1().Indices()) {
        map.slices.emplace_back(IsPrinted(setup, tab, current) ? CopyOf(window.AddFlow1()[index])
                                                               : std::make_unique<diagram::Surface>(),
                                window.TabStrip().TabCaption(tab));
        ++tab;
    }
    return map;
}

namespace {

diagram::Surface &SurfaceOf(document::MapWindow &window, int tab) {
    return window.AddFlow1()[window.AddFlow1().Indices()[std::size_t(tab)]];
}

QStringList SomeNodes(const diagram::Surface &surface) {
    constexpr int kEnough = 20; // to know a slice by
    QStringList keys;
    for (const diagram::Node &node : surface.Nodes()) {
        if (keys.size() == kEnough) break;
        if (!node.Key().isEmpty()) keys << node.Key();
    }
    return keys;
}

// A key belongs to a place in the row of tabs, whichever slice is moved there, so the caption counts more.
// The key finds a slice that was renamed, as long as there are as many tabs as then.
int LikelyTab(document::Tabs &tabs, const SliceMark &mark) {
    int byKey = -1, byCaption = -1;
    for (int tab = 0; tab < tabs.TabCount(); ++tab) {
        const bool key = tabs.TabKey(tab) == mark.key, caption = tabs.TabCaption(tab) == mark.caption;
        if (key && caption) return tab;
        if (key) byKey = tab;
        if (caption && byCaption < 0) byCaption = tab;
    }
    if (byCaption >= 0) return byCaption;
    return tabs.TabCount() == mark.tabs ? byKey : -1;
}

} // namespace

SliceMark MarkOf(document::MapWindow &window, int tab) {
    document::Tabs &tabs = window.TabStrip();
    return {tabs.TabKey(tab), tabs.TabCaption(tab), tabs.TabCount(), window.clsSettings().ShownFile(),
            SomeNodes(SurfaceOf(window, tab))};
}

int TabOf(document::MapWindow &window, const SliceMark &mark) {
    const int tab = LikelyTab(window.TabStrip(), mark);
    if (tab < 0 || window.clsSettings().ShownFile() == mark.file) return tab;
    // Another map, or the same one saved under another name: that has nodes in common with what it was.
    const diagram::Surface &surface = SurfaceOf(window, tab);
    const bool same = mark.nodes.isEmpty() || std::ranges::any_of(mark.nodes, [&](const QString &key) {
                          return surface.Nodes().Find(key) != nullptr;
                      });
    return same ? tab : -1;
}

} // namespace print
