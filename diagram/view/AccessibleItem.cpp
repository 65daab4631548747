#include "diagram/view/AccessibleItem.h"

#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"

namespace diagram {

namespace {

QString EndsOf(const Link &link) {
    return QStringLiteral("%1 to %2")
        .arg(link.Source().Text().simplified(), link.Destination().Text().simplified());
}

QString NameOf(const Item &item) {
    if (const Node *node = item.AsNode()) return node->Text().simplified();
    const QString text = item.AsLink()->Text().simplified();
    return text.isEmpty() ? EndsOf(*item.AsLink()) : text;
}

QString FactsOf(const Item &item) {
    if (const Link *link = item.AsLink()) return EndsOf(*link);
    const int count = item.AsNode()->Links().Count();
    return count == 1 ? QStringLiteral("1 link") : QStringLiteral("%1 links").arg(count);
}

QRectF BoxOf(Scene &scene, const Item &item) {
    return item.AsNode() ? item.AsNode()->Bounds() : scene.LinkPath(*item.AsLink()).boundingRect();
}

bool IsFocus(const Item &item) {
    const Surface &surface = item.Owner();
    const Node *node = surface.SelectedNode();
    return item.AsNode() ? item.AsNode() == node : !node && item.AsLink() == surface.SelectedLink();
}

} // namespace

AccessibleItem::AccessibleItem(SurfaceView &view, const Item &item)
    : view_(&view), id_(item.Id()), kind_(item.Kind()) {}

SurfaceView *AccessibleItem::View() const { return qobject_cast<SurfaceView *>(view_.data()); }

Item *AccessibleItem::Find() const {
    const SurfaceView *view = View();
    if (!view) return nullptr;
    if (kind_ == ItemKind::Node) return view->Model().FindNode(id_);
    return view->Model().FindLink(id_);
}

QWindow *AccessibleItem::window() const {
    const QAccessibleInterface *list = parent();
    return list ? list->window() : nullptr;
}

QAccessibleInterface *AccessibleItem::parent() const { return QAccessible::queryAccessibleInterface(View()); }

QString AccessibleItem::text(QAccessible::Text which) const {
    const Item *item = Find();
    if (!item) return {};
    if (which == QAccessible::Name) return NameOf(*item);
    if (which != QAccessible::Description) return {};
    const QString described = View()->Described(*item);
    return described.isEmpty() ? FactsOf(*item) : described + QStringLiteral(", ") + FactsOf(*item);
}

QRect AccessibleItem::rect() const {
    const Item *item = Find();
    if (!item) return {};
    const QRectF box = BoxOf(View()->TheScene(), *item);
    const QRectF pixels(View()->FromSurface(box.topLeft()), View()->FromSurface(box.bottomRight()));
    return pixels.toAlignedRect().translated(View()->viewport()->mapToGlobal(QPoint(0, 0)));
}

QAccessible::State AccessibleItem::state() const {
    QAccessible::State state;
    const Item *item = Find();
    state.invalid = !item;
    if (!item) return state;
    const bool selectable = IsSelectable(*item);
    const QWidget &viewport = *View()->viewport();
    const QRect seen(viewport.mapToGlobal(QPoint(0, 0)), viewport.size());
    state.selectable = state.focusable = state.multiSelectable = state.extSelectable = selectable;
    state.selected = IsSelected(*item);
    state.focused = View()->hasFocus() && IsFocus(*item);
    state.invisible = item->AsNode() ? item->AsNode()->Hidden() : item->AsLink()->Hidden();
    state.offscreen = !rect().adjusted(-1, -1, 1, 1).intersects(seen);
    return state;
}

void *AccessibleItem::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList AccessibleItem::actionNames() const {
    const Item *item = Find();
    if (!item || !IsSelectable(*item)) return {};
    return {setFocusAction(), toggleAction()};
}

void AccessibleItem::doAction(const QString &name) {
    Item *item = Find();
    if (!item) return;
    View()->CancelGesture();
    if (name == toggleAction()) ToggleSelected(*item);
    if (name != setFocusAction()) return;
    View()->setFocus(Qt::OtherFocusReason);
    View()->EnsureVisible(BoxOf(View()->TheScene(), *item));
    SelectOnly(*item);
}

} // namespace diagram
