#include "mainwindow/menus/FormatMenu.h"

#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace mainwindow {

namespace {

struct EntryRow {
    const char *menu;
    const char *button;
    const char *caption;
    const char *before = ""; // the name of the separator above which it stands; empty: at the end
};

// The shapes of a new element have a menu of their own, below their button; buttons that belong to a command
// come with it.
constexpr EntryRow kRows[] = {
    {"mnuArrange", "FRONT", QT_TRANSLATE_NOOP("FormatMenu", "Bring to &front"), "mnuArrangeSep1"},
    {"mnuArrange", "BACK", QT_TRANSLATE_NOOP("FormatMenu", "Send to &back"), "mnuArrangeSep1"},
    {"mnuView", "DISPLAY", QT_TRANSLATE_NOOP("FormatMenu", "Bot&h texts"), "mnuViewSepGo"},
    {"mnuView", "EXPAND", QT_TRANSLATE_NOOP("FormatMenu", "E&xpand Timeline Nodes"), "mnuViewSepGo"},
    {"mnuView", "COMPRESS", QT_TRANSLATE_NOOP("FormatMenu", "&Compress Timeline Nodes"), "mnuViewSepGo"},
};

QAction *Named(const QMenu &menu, const char *name) {
    return *name ? menu.findChild<QAction *>(QLatin1String(name), Qt::FindDirectChildrenOnly) : nullptr;
}

} // namespace

void AddFormatEntries(const SmartMenu &menus, const Toolbar &format) {
    for (const EntryRow &row : kRows) {
        QMenu *menu = menus.Menu(QLatin1String(row.menu));
        QAction *button = format.Button(QLatin1String(row.button));
        if (!menu || !button) continue;
        button->setText(QCoreApplication::translate("FormatMenu", row.caption));
        menu->insertAction(Named(*menu, row.before), button);
    }
}

const char *MenuOfFormat(const QString &button) {
    for (const EntryRow &row : kRows)
        if (button == QLatin1String(row.button)) return row.menu;
    return nullptr;
}

} // namespace mainwindow
