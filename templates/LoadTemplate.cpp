#include "templates/LoadTemplate.h"

#include "diagram/format/Content.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/UndoStep.h"
#include "support/Error.h"
#include "templates/DiagramNode.h"
#include "templates/TemplateFiles.h"
#include "timeline/PrepFileForImport.h"

#include <algorithm>
#include <QSet>

namespace templates {

namespace {

// The surface file of the template with new keys and the window's levels and groups.
QByteArray FitFor(document::MapWindow &window, const QString &file) {
    return timeline::PrepBytesForImport(SurfaceFileOf(file), window);
}

// Default nodes, days and the node "DIAGRAM" are hidden ones that can't be selected.
bool IsUsers(const diagram::NodeData &node) { return node.selectable || !(node.hidden || node.marked); }

// The nodes and links of the file that a user would call its content, as a copied selection.
diagram::Content UsersContent(const QByteArray &bytes) {
    diagram::Content content = diagram::Decode(bytes, diagram::ContentKind::Surface);
    content.kind = diagram::ContentKind::Selection;
    content.surface = {};
    QSet<diagram::ItemId> gone;
    for (diagram::StoredNode &node : content.nodes) {
        if (!IsUsers(node.data)) gone.insert(node.id);
        node.data.hidden = false; // what a filter hid
    }
    std::erase_if(content.nodes, [&](const auto &node) { return gone.contains(node.id); });
    std::erase_if(content.links, [&](const auto &link) {
        return gone.contains(link.data.source) || gone.contains(link.data.destination);
    });
    for (diagram::StoredLink &link : content.links) link.data.hidden = false;
    return content;
}

// By how much the content is moved for its middle to lie at the point, or so near to it that nothing leaves
// the page at its top or left.
QPointF OffsetTo(const QPointF &at, const diagram::Content &content) {
    QRectF extent;
    for (const diagram::StoredNode &node : content.nodes)
        extent |= QRectF(node.data.left, node.data.top, node.data.width, node.data.height);
    const QPointF corner = extent.topLeft() + at - extent.center();
    return QPointF(std::max(0.0, corner.x()), std::max(0.0, corner.y())) - extent.topLeft();
}

} // namespace

void LoadTemplate(document::MapWindow &window, diagram::Surface &flow, const QString &file) {
    support::PassOn("LoadTemplate", [&] {
        const QByteArray bytes = FitFor(window, file);
        document::UndoStep step(flow);
        diagram::ReplaceBytes(flow, bytes);
        TakeDiagramNode(flow);
        window.clsSettings().Dirty = true;
        step.Close();
    });
}

void InsertTemplate(document::MapWindow &window, diagram::Surface &flow, const QString &file, QPointF at) {
    support::PassOn("InsertTemplate", [&] {
        const diagram::Content content = UsersContent(FitFor(window, file));
        if (content.nodes.empty()) return;
        const QPointF offset = OffsetTo(at, content);
        document::UndoStep step(flow);
        diagram::PasteBytes(flow, diagram::Encode(content), float(offset.x()), float(offset.y()));
        window.clsSettings().Dirty = true;
        step.Close();
    });
}

} // namespace templates
