#include "diagram/view/AccessibleItem.h"

#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"

namespace diagram {

namespace {

QString Named(const Node &node, const ItemWords &words) {
    const QString text = node.ShownText().simplified();
    return text.isEmpty() ? words.node : text;
}

QString EndsOf(const Link &link, const ItemWords &words) {
    return QStringLiteral("%1 to %2").arg(Named(link.Source(), words), Named(link.Destination(), words));
}

QString NameOf(const Item &item, const ItemWords &words) {
    if (const Node *node = item.AsNode()) return Named(*node, words);
    const QString text = item.AsLink()->Text().simplified();
    return text.isEmpty() ? EndsOf(*item.AsLink(), words) : text;
}

QString FactsOf(const Item &item, const ItemWords &words) {
    if (const Link *link = item.AsLink())
        return QStringLiteral("%1, %2").arg(words.link, EndsOf(*link, words));
    const int count = item.AsNode()->Links().Count();
    const QString links = words.link.toLower() + QLatin1String(count == 1 ? "" : "s");
    return QStringLiteral("%1, %2 %3").arg(words.node).arg(count).arg(links);
}

QRectF BoxOf(Scene &scene, const Item &item) {
    return item.AsNode() ? item.AsNode()->Bounds() : scene.LinkPath(*item.AsLink()).boundingRect();
}

// What is told of the link that keys are making or moving, with the node at which it would end; empty for
// other items.
QString LinkInSight(const Item &item, const SurfaceView &view) {
    const Attention attention = view.LooksAt();
    const Node *other = attention.item == item.Id() ? view.Model().FindNode(attention.linkedTo) : nullptr;
    if (!other) return {};
    const QString words = attention.asSource ? QStringLiteral("%1 to %2") : QStringLiteral("%1 from %2");
    return words.arg(view.Words().link, Named(*other, view.Words()));
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
    const ItemWords &words = View()->Words();
    if (which == QAccessible::Name) return NameOf(*item, words);
    if (which == QAccessible::Value)
        return item->AsNode() ? item->AsNode()->ShownText() : item->AsLink()->Text();
    if (which != QAccessible::Description) return {};
    QStringList all{LinkInSight(*item, *View()), View()->Described(*item), FactsOf(*item, words)};
    all.removeAll(QString());
    return all.join(QStringLiteral(", "));
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
    state.focused = View()->hasFocus() && View()->FocusedItem() == item;
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
