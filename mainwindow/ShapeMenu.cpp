#include "mainwindow/ShapeMenu.h"

#include "mainwindow/Icons.h"
#include "widgets/ShapeNames.h"

namespace mainwindow {

std::vector<ShapeEntry> ShapeEntries() {
    std::vector<ShapeEntry> entries;
    for (const widgets::ShapeName &shape : widgets::ShapeNames())
        entries.push_back({shape.value, shape.caption});
    return entries;
}

ShapeMenu::ShapeMenu(QWidget *parent) : QMenu(parent) {
    connect(this, &QMenu::aboutToShow, this, &ShapeMenu::Fill);
}

void ShapeMenu::Fill() {
    if (!isEmpty()) return;
    for (const ShapeEntry &entry : ShapeEntries()) {
        QAction *action = addAction(ShapeIcon(entry.tag), entry.caption);
        connect(action, &QAction::triggered, this, [this, tag = entry.tag] { Q_EMIT Chosen(tag); });
    }
}

} // namespace mainwindow
