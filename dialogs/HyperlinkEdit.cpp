#include "dialogs/HyperlinkEdit.h"

#include "diagram/model/Node.h"
#include "document/clsfrmMain.h"
#include "document/MapSchema.h"
#include "document/MapWindow.h"
#include "document/OpenMap.h"
#include "document/Tags.h"
#include "document/WhereItIs.h"
#include "support/clsGUID.h"

#include <algorithm>

namespace dialogs {

namespace {

using document::cHyperlink;

const QString kYes = QStringLiteral("Yes");
const QString kNo = QStringLiteral("No");

// A file from elsewhere may have any number of rows; no more than these can be told apart.
constexpr std::size_t kMostSlices = 65536;

std::optional<cHyperlink> TakeFirst(document::cHyperlinks &hyperlinks, const QString &node) {
    const auto isOfNode = [&](const cHyperlink &hyperlink) { return hyperlink.Node == node; };
    for (const cHyperlink &hyperlink : hyperlinks) {
        if (!isOfNode(hyperlink)) continue;
        const cHyperlink taken = hyperlink;
        hyperlinks.Remove(taken.Key);
        return taken;
    }
    return std::nullopt;
}

bool HasKey(const document::cHyperlinks &hyperlinks, const QString &key) {
    for (const cHyperlink &hyperlink : hyperlinks)
        if (hyperlink.Key == key) return true;
    return false;
}

// Adds a hyperlink under the node's key, as after a load; under a key of its own where another one has that.
cHyperlink &Add(document::cHyperlinks &hyperlinks, const QString &node) {
    QString key = HasKey(hyperlinks, node) ? QString() : node;
    cHyperlink &hyperlink = hyperlinks.add(key);
    hyperlink.Node = node;
    return hyperlink;
}

bool LeadsThere(document::MapWindow &window, const cHyperlink &former, const HyperlinkEdit &edit) {
    const int slice = former.Map.isEmpty() ? PositionOf(window, former) : former.Slice;
    return former.Map == edit.Map && slice == *edit.Slice;
}

} // namespace

void ApplyHyperlink(document::MapWindow &window, diagram::Node &oNode, const HyperlinkEdit &edit) {
    if (oNode.Key().isEmpty()) oNode.SetKey(support::GetGUID());
    document::cHyperlinks &hyperlinks = window.clsSettings().Hyperlinks();
    const std::optional<cHyperlink> former = TakeFirst(hyperlinks, oNode.Key());
    const bool links = edit.chkHyperlink && edit.Slice;
    if (links) {
        cHyperlink &hyperlink = Add(hyperlinks, oNode.Key());
        hyperlink.Map = edit.Map;
        hyperlink.Slice = std::int16_t(*edit.Slice);
        if (former && LeadsThere(window, *former, edit)) {
            hyperlink.DestNode = former->DestNode;
            hyperlink.SliceKey = former->SliceKey;
        }
    }
    document::SetTag(oNode, document::tags::kHyper, links ? kYes : kNo);
    window.clsSettings().Dirty = true;
}

std::vector<cHyperlink> HyperlinksOf(document::MapWindow &window, const diagram::Node &oNode) {
    std::vector<cHyperlink> found;
    for (const cHyperlink &hyperlink : window.clsSettings().Hyperlinks())
        if (hyperlink.Node == oNode.Key()) found.push_back(hyperlink);
    return found;
}

std::vector<LinkSlice> SlicesOfThisMap(document::MapWindow &window) {
    std::vector<LinkSlice> slices;
    for (int tab = 0; tab < window.TabStrip().TabCount(); ++tab)
        slices.push_back({window.TabStrip().TabCaption(tab), tab + 1});
    return slices;
}

std::vector<LinkSlice> SlicesOfMap(document::MapWindow &window, const QString &map) {
    using namespace document;
    QString path = WhereItIs(map, window);
    std::optional<storage::Database> database = OpenMapToRead(path);
    if (!database) return {};
    storage::Recordset rows =
        database->OpenRecordset(SelectAll(schema::kSlices) + QStringLiteral(" ORDER BY ") +
                                Bracketed(schema::kSlices, schema::slice::kIndex));
    const int text = rows.Column(NameOf(schema::kSlices, schema::slice::kText));
    const int index = rows.Column(NameOf(schema::kSlices, schema::slice::kIndex));
    std::vector<LinkSlice> slices;
    for (; !rows.EndOfFile() && slices.size() < kMostSlices; rows.MoveNext())
        slices.push_back({rows.Text(text), rows.Integer(index)});
    return slices;
}

int PositionOf(document::MapWindow &window, const cHyperlink &hyperlink) {
    if (!hyperlink.SliceKey.isEmpty())
        for (int tab = 0; tab < window.TabStrip().TabCount(); ++tab)
            if (window.TabStrip().TabKey(tab) == hyperlink.SliceKey) return tab + 1;
    return hyperlink.Slice;
}

} // namespace dialogs
