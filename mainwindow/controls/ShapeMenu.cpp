#include "mainwindow/controls/ShapeMenu.h"

#include "mainwindow/controls/MenuColumns.h"
#include "mainwindow/icons/Icons.h"
#include "widgets/PopupPlace.h"
#include "widgets/ShapeNames.h"

#include <QScreen>
#include <QToolButton>

namespace mainwindow {

std::vector<ShapeEntry> ShapeEntries() {
    std::vector<ShapeEntry> entries;
    for (const widgets::ShapeName &shape : widgets::ShapeNames())
        entries.push_back({shape.value, shape.caption});
    return entries;
}

namespace {

// The button that opens the menu; null where it stands elsewhere.
const QWidget *ButtonOf(const QAction &entry) {
    for (QObject *object : entry.associatedObjects()) {
        const auto *button = qobject_cast<const QToolButton *>(object);
        if (button && button->isVisible()) return button;
    }
    return nullptr;
}

} // namespace

ShapeMenu::ShapeMenu(QWidget *parent) : QMenu(parent) {
    auto *style = new ColumnStyle;
    style->setParent(this);
    setStyle(style);
    connect(this, &QMenu::aboutToShow, this, &ShapeMenu::Fill);
}

// Where it is one of several columns, the toolkit puts a menu at the top of the screen.
void ShapeMenu::showEvent(QShowEvent *event) {
    QMenu::showEvent(event);
    const QWidget *button = ButtonOf(*menuAction());
    if (!button) return;
    const QRect place(button->mapToGlobal(QPoint(0, 0)), button->size());
    const QRect free = widgets::BesidePlace(size(), place, screen()->availableGeometry());
    if (free.size() == size()) move(free.topLeft());
}

void ShapeMenu::Fill() {
    if (!isEmpty()) return;
    for (const ShapeEntry &entry : ShapeEntries()) {
        QAction *action = addAction(ShapeIcon(entry.tag), entry.caption);
        connect(action, &QAction::triggered, this, [this, tag = entry.tag] { Q_EMIT Chosen(tag); });
    }
}

} // namespace mainwindow
