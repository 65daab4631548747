#include "diagram/format/SurfaceFile.h"

#include "diagram/edit/History.h"
#include "diagram/format/Content.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "support/AtomicFile.h"

#include <algorithm>
#include <map>

namespace diagram {

const char *const kSelectionMimeType = "application/x-velmora-selection";

namespace {

StoredLink Stored(const Link &link) {
    link.OwnBends(); // brings its values up to date
    link.Route();
    return {link.Id(), link.Data()};
}

// Maps the file's identities to the next free ones, in the same order, so that a file can't bring huge
// numbers.
class FreshIds {
public:
    FreshIds(const Content &content, ItemId first) {
        for (const StoredNode &node : content.nodes) ids_[node.id];
        for (const StoredLink &link : content.links) ids_[link.id];
        for (auto &[stored, fresh] : ids_) fresh = first++;
    }
    ItemId operator[](ItemId stored) const { return ids_.at(stored); }

private:
    std::map<ItemId, ItemId> ids_;
};

void Place(Surface &surface, Content &content) {
    const FreshIds ids(content, surface.NextId());
    for (StoredNode &node : content.nodes) surface.Restore(ids[node.id], std::move(node.data));
    for (StoredLink &link : content.links) {
        link.data.source = ids[link.data.source];
        link.data.destination = ids[link.data.destination];
        surface.Restore(ids[link.id], std::move(link.data));
    }
}

// The content with the surface's own values for what files don't hold.
Content DecodeFor(const Surface &surface, const QByteArray &bytes) {
    Content content = Decode(bytes, ContentKind::Surface);
    for (const PropertyRow<SurfaceData> &row : SurfaceProperties())
        if (!IsStored(row)) row.set(content.surface, row.get(surface.Data()));
    return content;
}

void Shift(Content &content, float dx, float dy) {
    for (StoredNode &node : content.nodes) {
        node.data.left = Checked(IsCoordinate, node.data.left + dx, "Surface");
        node.data.top = Checked(IsCoordinate, node.data.top + dy, "Surface");
    }
    for (StoredLink &link : content.links) {
        for (Point &point : link.data.points) {
            point.x = Checked(IsCoordinate, point.x + dx, "Surface");
            point.y = Checked(IsCoordinate, point.y + dy, "Surface");
        }
    }
}

// Stacks the content on top of what is there, in its own order.
void PutOnTop(const Surface &surface, Content &content) {
    std::vector<std::pair<StackKey, StackKey *>> keys;
    for (StoredNode &node : content.nodes) keys.emplace_back(node.data.stack, &node.data.stack);
    for (StoredLink &link : content.links) keys.emplace_back(link.data.stack, &link.data.stack);
    std::ranges::stable_sort(keys, {}, &std::pair<StackKey, StackKey *>::first);
    const auto &order = surface.Stacking().Order();
    StackKey top = order.empty() ? 0 : order.back()->Stack();
    for (const auto &entry : keys) *entry.second = top += kStackGap;
}

} // namespace

QByteArray SaveBytes(const Surface &surface) {
    Content content;
    content.surface = surface.Data();
    for (const Node &node : surface.Nodes()) content.nodes.push_back({node.Id(), node.Data()});
    for (const auto &link : surface.Links()) content.links.push_back(Stored(*link));
    return Encode(content);
}

void LoadBytes(Surface &surface, const QByteArray &bytes) {
    Content content = DecodeFor(surface, bytes);
    surface.Reset();
    surface.Overwrite(std::move(content.surface));
    Place(surface, content);
    surface.Routes().Keep();
    surface.Actions().Forget();
}

void ReplaceBytes(Surface &surface, const QByteArray &bytes) {
    Content content = DecodeFor(surface, bytes);
    const ActionGroup step(surface);
    const RoutesAsTold told(surface);
    surface.Nodes().Clear();
    surface.Overwrite(std::move(content.surface));
    Place(surface, content);
}

void SaveFile(const Surface &surface, const QString &path) {
    const QByteArray bytes = SaveBytes(surface);
    support::AtomicFile file(path);
    file.Write(bytes);
    file.Commit();
}

void LoadFile(Surface &surface, const QString &path) { LoadBytes(surface, support::ReadWholeFile(path)); }

QByteArray SaveSelection(const Surface &surface) {
    Content content;
    content.kind = ContentKind::Selection;
    for (const Node &node : surface.Nodes()) {
        if (node.Selected()) content.nodes.push_back({node.Id(), node.Data()});
    }
    for (const auto &link : surface.Links()) {
        if (link->Source().Selected() && link->Destination().Selected())
            content.links.push_back(Stored(*link));
    }
    return Encode(content);
}

void PasteBytes(Surface &surface, const QByteArray &bytes, float dx, float dy) {
    Content content = Decode(bytes, ContentKind::Selection);
    Shift(content, dx, dy);
    PutOnTop(surface, content);
    const ItemId first = surface.NextId();
    surface.BeginAction(0);
    Place(surface, content);
    surface.EndAction();
    surface.UnselectAll();
    for (Node &node : surface.Nodes()) {
        if (node.Id() >= first) node.SetSelected(true);
    }
    for (const auto &link : surface.Links()) {
        if (link->Id() >= first) link->SetSelected(true);
    }
}

} // namespace diagram
