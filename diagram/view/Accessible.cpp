#include "diagram/view/Accessible.h"

#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/AccessibleItem.h"
#include "diagram/view/SurfaceView.h"

#include <algorithm>
#include <QAccessibleWidget>
#include <unordered_map>

namespace diagram {

namespace {

constexpr size_t kMostChanges = 100; // told one by one

// Entries: the nodes, then the links, both in the order of adding; behind them the widgets of a scroll area.
// Entries are made when they are asked for.
class AccessibleSurface : public QAccessibleWidget {
public:
    explicit AccessibleSurface(SurfaceView &view) : QAccessibleWidget(&view, QAccessible::List) {}
    ~AccessibleSurface() override {
        for (const auto &[item, id] : entries_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return ItemCount() + QAccessibleWidget::childCount(); }
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiSelectable = state.extSelectable = true;
        return state;
    }

    QAccessibleInterface *Entry(const Item &item) const;
    // The entry of an item that goes, if it was ever asked for.
    QAccessibleInterface *Known(ItemId id) const;
    void Forget(ItemId id);

private:
    // Null while the view is being destroyed.
    SurfaceView *View() const { return qobject_cast<SurfaceView *>(object()); }
    int NodeCount() const { return View() ? View()->Model().Nodes().Count() : 0; }
    int ItemCount() const { return NodeCount() + (View() ? int(View()->Model().Links().size()) : 0); }
    int IndexOf(const AccessibleItem &entry) const;

    mutable std::unordered_map<ItemId, QAccessible::Id> entries_;
};

QAccessibleInterface *AccessibleSurface::Entry(const Item &item) const {
    const auto [at, isNew] = entries_.try_emplace(item.Id());
    if (isNew) at->second = QAccessible::registerAccessibleInterface(new AccessibleItem(*View(), item));
    return QAccessible::accessibleInterface(at->second);
}

QAccessibleInterface *AccessibleSurface::Known(ItemId id) const {
    const auto entry = entries_.find(id);
    return entry == entries_.end() ? nullptr : QAccessible::accessibleInterface(entry->second);
}

void AccessibleSurface::Forget(ItemId id) {
    const auto entry = entries_.find(id);
    if (entry == entries_.end()) return;
    QAccessible::deleteAccessibleInterface(entry->second);
    entries_.erase(entry);
}

QAccessibleInterface *AccessibleSurface::child(int index) const {
    if (index < 0) return nullptr;
    if (index < NodeCount()) return Entry(View()->Model().Nodes().Item(index + 1));
    if (index < ItemCount()) return Entry(*View()->Model().Links()[size_t(index - NodeCount())]);
    return QAccessibleWidget::child(index - ItemCount());
}

// Both collections are sorted by identity.
int AccessibleSurface::IndexOf(const AccessibleItem &entry) const {
    if (!entry.isValid() || entry.parent() != this) return -1;
    const auto links = View()->Model().Links();
    if (entry.Kind() == ItemKind::Link) {
        const auto at =
            std::ranges::lower_bound(links, entry.Id(), {}, [](const auto &each) { return each->Id(); });
        return NodeCount() + int(at - links.begin());
    }
    int low = 0, high = NodeCount();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (View()->Model().Nodes().Item(middle + 1).Id() < entry.Id())
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

int AccessibleSurface::indexOfChild(const QAccessibleInterface *child) const {
    if (const auto *entry = dynamic_cast<const AccessibleItem *>(child)) return IndexOf(*entry);
    const int widget = QAccessibleWidget::indexOfChild(child);
    return widget < 0 ? widget : ItemCount() + widget;
}

QAccessibleInterface *AccessibleSurface::childAt(int x, int y) const {
    if (!View()) return nullptr;
    for (int i = 0; i < QAccessibleWidget::childCount(); ++i) {
        QAccessibleInterface *widget = QAccessibleWidget::child(i);
        const bool bar = widget && widget->object() != View()->viewport();
        if (bar && !widget->state().invisible && widget->rect().contains(x, y)) return widget;
    }
    const QPoint pixels = View()->viewport()->mapFromGlobal(QPoint(x, y));
    if (!View()->viewport()->rect().contains(pixels)) return nullptr;
    const QPointF at = View()->ToSurface(pixels);
    if (const Node *node = NodeAtPoint(View()->TheScene(), float(at.x()), float(at.y()))) return Entry(*node);
    if (const Link *link = LinkAtPoint(View()->TheScene(), float(at.x()), float(at.y()))) return Entry(*link);
    return nullptr;
}

QAccessibleInterface *AccessibleSurface::focusChild() const {
    if (!View() || !View()->hasFocus()) return QAccessibleWidget::focusChild();
    const Item *focus = View()->FocusedItem();
    return focus ? Entry(*focus) : QAccessibleWidget::focusChild();
}

QAccessibleInterface *MakeAccessible(const QString &, QObject *object) {
    auto *view = qobject_cast<SurfaceView *>(object);
    return view ? new AccessibleSurface(*view) : nullptr;
}

AccessibleSurface *ListOf(SurfaceView &view) {
    return dynamic_cast<AccessibleSurface *>(QAccessible::queryAccessibleInterface(&view));
}

} // namespace

void InstallAccessibility() { QAccessible::installFactory(MakeAccessible); }

AccessibleNotices::AccessibleNotices(SurfaceView &view) : view_(view), active_(QAccessible::isActive()) {
    QAccessible::installActivationObserver(this);
}

AccessibleNotices::~AccessibleNotices() { QAccessible::removeActivationObserver(this); }

void AccessibleNotices::SetAssistant(std::function<void(QAccessibleEvent &)> assistant) {
    assistant_ = std::move(assistant);
}

void AccessibleNotices::Tell(QAccessibleEvent &event) const {
    if (assistant_)
        assistant_(event);
    else
        QAccessible::updateAccessibility(&event);
}

void AccessibleNotices::Added(const Item &item) {
    ListChanged();
    if (Listens() && added_.size() <= kMostChanges) added_.push_back(item.Id());
}

void AccessibleNotices::Changed(const Item &item, Change what) {
    if (!Listens()) return;
    if (!Has(what, Change::Selection) && !Has(what, Change::Text)) return;
    if (changed_.size() > kMostChanges) return;
    Change &known = changed_.try_emplace(item.Id(), Change::None).first->second;
    known = known | what;
}

void AccessibleNotices::ListChanged() { listChanged_ = Listens(); }

void AccessibleNotices::Removed(const Item &item) {
    ListChanged();
    if (!Listens()) return;
    AccessibleSurface *list = ListOf(view_);
    QAccessibleInterface *entry = list ? list->Known(item.Id()) : nullptr;
    if (!entry) return;
    QAccessibleEvent gone(entry, QAccessible::ObjectDestroyed);
    Tell(gone);
    list->Forget(item.Id());
}

void AccessibleNotices::SendChange(const Item &item, Change what) const {
    QAccessibleInterface *entry = ListOf(view_)->Entry(item);
    if (Has(what, Change::Text)) {
        QAccessibleEvent name(entry, QAccessible::NameChanged);
        Tell(name);
    }
    if (!Has(what, Change::Selection)) return;
    const bool selected = item.AsNode() ? item.AsNode()->Selected() : item.AsLink()->Selected();
    QAccessibleEvent selection(entry, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    Tell(selection);
    QAccessible::State state;
    state.selected = true;
    QAccessibleStateChangeEvent change(entry, state);
    Tell(change);
}

void AccessibleNotices::SendFocus() {
    const Item *focus = view_.FocusedItem();
    const ItemId id = focus && view_.hasFocus() ? focus->Id() : kNoItem;
    if (std::exchange(focus_, id) == id || id == kNoItem) return;
    QAccessibleEvent event(ListOf(view_)->Entry(*focus), QAccessible::Focus);
    Tell(event);
}

void AccessibleNotices::SendAdded() {
    const auto added = std::exchange(added_, {});
    if (added.size() > kMostChanges) return;
    for (const ItemId id : added) {
        const Item *item = FindItem(view_.Model(), id);
        if (!item) continue;
        QAccessibleEvent event(ListOf(view_)->Entry(*item), QAccessible::ObjectCreated);
        Tell(event);
    }
}

void AccessibleNotices::Send() {
    const auto changed = std::exchange(changed_, {});
    const bool listChanged = std::exchange(listChanged_, false);
    if (!Listens() || !ListOf(view_)) return;
    SendAdded();
    if (listChanged) {
        QAccessibleEvent reorder(&view_, QAccessible::ObjectReorder);
        Tell(reorder);
    }
    if (changed.size() > kMostChanges) {
        QAccessibleEvent many(&view_, QAccessible::SelectionWithin);
        Tell(many);
    } else {
        for (const auto &[id, what] : changed)
            if (const Item *item = FindItem(view_.Model(), id)) SendChange(*item, what);
    }
    SendFocus();
}

} // namespace diagram
