#include "mainwindow/ShapeMenu.h"

#include "diagram/shapes/Shapes.h"
#include "mainwindow/Icons.h"

namespace mainwindow {

namespace {
// The one shape that the menu spells in another way than the lists of the dialogs.
constexpr int kPunchedTape = 65;
} // namespace

std::vector<ShapeEntry> ShapeEntries() {
    std::vector<ShapeEntry> entries;
    for (const diagram::ShapeRow &row : diagram::ShapeTable()) {
        const QString name = QString::fromLatin1(row.name);
        entries.push_back({row.value, row.value == kPunchedTape ? QStringLiteral("Punched Tape") : name});
    }
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
