// A node or link as a screen reader sees it.
#pragma once

#include "diagram/model/Item.h"

#include <QAccessibleActionInterface>
#include <QAccessibleInterface>
#include <QPointer>
#include <QWidget>

namespace diagram {

class SurfaceView;

// Keeps the item by its identity: not valid while the item isn't there. Name: the text; of a link without
// text its two ends. Description: what the view's describer says, then whether it is a node or a link in the
// view's words, and the number of links or the ends. Value: the whole text. Two actions: focus, which selects
// it alone, and toggle, which selects it or not.
class AccessibleItem : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleItem(SurfaceView &view, const Item &item);

    ItemId Id() const { return id_; }
    ItemKind Kind() const { return kind_; }

    bool isValid() const override { return Find() != nullptr; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text which) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override; // pixels of the screen
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    SurfaceView *View() const; // null once it is being destroyed
    Item *Find() const;

    QPointer<QWidget> view_;
    ItemId id_;
    ItemKind kind_;
};

} // namespace diagram
