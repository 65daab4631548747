#include "mainwindow/edits/EditSlices.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "diagram/model/ScreenValues.h"
#include "document/clsfrmMain.h"
#include "document/DefaultNodes.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "timeline/Arrange.h"

#include <algorithm>
#include <optional>
#include <QHash>

namespace mainwindow {

namespace {

// Marks a hyperlink that was moved already, so that a later slice with that key doesn't move it again.
constexpr QLatin1Char kMoved('A');

// What makes up a slice, apart from its place. The surface's bytes leave out picture and colour.
struct KeptSlice {
    QByteArray bytes;
    diagram::Picture picture;
    support::Colour backColor = support::kWhite;
    bool snapToGrid = false;
    std::optional<diagram::Revision> revision; // none for a new slice
};

KeptSlice Keep(const diagram::Surface &surface) {
    return {diagram::SaveBytes(surface), surface.Picture(), surface.BackColor(),
            surface.Screen().SnapToGrid(), surface.Actions().Revision()};
}

void PutInto(diagram::Surface &surface, const KeptSlice &kept) {
    diagram::LoadBytes(surface, kept.bytes);
    surface.SetPicture(kept.picture);
    surface.SetBackColor(kept.backColor);
    surface.Screen().SetSnapToGrid(kept.snapToGrid);
    if (kept.revision) surface.Actions().SetRevision(*kept.revision);
}

void MakeNew(diagram::Surface &surface) {
    KeptSlice empty = Keep(diagram::Surface());
    empty.revision.reset();
    PutInto(surface, empty);
    document::LoadDefaults(surface);
    timeline::CarryArrangement(surface);
}

// By the keys of their tabs.
QHash<QString, KeptSlice> KeepAll(document::MapWindow &frm) {
    QHash<QString, KeptSlice> kept;
    const std::vector<int> slots = frm.AddFlow1().Indices();
    for (std::size_t i = 0; i < slots.size(); ++i)
        kept.insert(frm.TabStrip().TabKey(int(i)), Keep(frm.AddFlow1()[slots[i]]));
    return kept;
}

void UnloadAllButTheFirst(document::SurfaceArray &surfaces) {
    std::vector<int> slots = surfaces.Indices();
    for (; slots.size() > 1; slots.pop_back()) surfaces.Unload(slots.back());
}

bool LeadsTo(const document::cHyperlink &hyperlink, const QString &key) {
    return !key.isEmpty() && hyperlink.Map.isEmpty() && hyperlink.SliceKey == key;
}

// Those of this map that go by number, as they were made since it was loaded, go by key from now on.
void KeyHyperlinks(document::MapWindow &frm) {
    document::Tabs &tabs = frm.TabStrip();
    for (document::cHyperlink &hyperlink : frm.clsSettings().Hyperlinks()) {
        const int tab = hyperlink.Slice - 1;
        const bool byNumber = hyperlink.Map.isEmpty() && hyperlink.SliceKey.isEmpty();
        if (byNumber && tab >= 0 && tab < tabs.TabCount()) hyperlink.SliceKey = tabs.TabKey(tab);
    }
}

// The number is what the map file keeps.
void MoveHyperlinks(document::MapWindow &frm, const document::cSlice &slice) {
    for (document::cHyperlink &hyperlink : frm.clsSettings().Hyperlinks()) {
        if (!LeadsTo(hyperlink, slice.Key)) continue;
        hyperlink.SliceKey = frm.TabStrip().TabKey(slice.iIndex) + kMoved;
        hyperlink.Slice = std::int16_t(slice.iIndex + 1);
    }
}

// Those to a slice that goes lead nowhere: the tab in its place has its key now.
void LoseHyperlinks(document::MapWindow &frm, const document::cSlice &slice) {
    for (document::cHyperlink &hyperlink : frm.clsSettings().Hyperlinks()) {
        if (!LeadsTo(hyperlink, slice.Key)) continue;
        hyperlink.SliceKey.clear();
        hyperlink.Slice = 0;
    }
}

void UnmarkHyperlinks(document::MapWindow &frm) {
    for (document::cHyperlink &hyperlink : frm.clsSettings().Hyperlinks())
        if (hyperlink.SliceKey.endsWith(kMoved)) hyperlink.SliceKey.chop(1);
}

} // namespace

std::vector<document::cSlice> SlicesOf(document::MapWindow &frm) {
    std::vector<document::cSlice> slices;
    document::Tabs &tabs = frm.TabStrip();
    for (int i = 0; i < tabs.TabCount(); ++i)
        slices.push_back({tabs.TabKey(i), std::int16_t(i), false, false, tabs.TabCaption(i)});
    return slices;
}

void RebuildSlices(document::MapWindow &frm, std::vector<document::cSlice> cLayers) {
    document::Tabs &tabs = frm.TabStrip();
    const int current = tabs.TheTab();
    const QHash<QString, KeptSlice> kept = KeepAll(frm);
    KeyHyperlinks(frm);
    for (const document::cSlice &slice : cLayers)
        if (slice.bDeleted) LoseHyperlinks(frm, slice);
    UnloadAllButTheFirst(frm.AddFlow1());
    std::erase_if(cLayers, [](const document::cSlice &slice) { return slice.bDeleted; });
    std::ranges::stable_sort(cLayers, {}, &document::cSlice::iIndex);
    tabs.SetTabCount(int(cLayers.size()));
    for (const document::cSlice &slice : cLayers) {
        diagram::Surface &surface = slice.iIndex == 0 ? frm.AddFlow1()[0] : frm.AddFlow1().Load(slice.iIndex);
        if (const auto found = kept.constFind(slice.Key); found != kept.constEnd())
            PutInto(surface, *found);
        else
            MakeNew(surface);
        tabs.SetTheTab(slice.iIndex);
        tabs.SetCaption(slice.SliceName);
        MoveHyperlinks(frm, slice);
    }
    UnmarkHyperlinks(frm);
    if (current < tabs.TabCount()) tabs.SetTheTab(current);
    frm.clsSettings().Dirty = true;
    frm.DoResize();
}

} // namespace mainwindow
