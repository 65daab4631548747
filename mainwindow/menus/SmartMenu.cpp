#include "mainwindow/menus/SmartMenu.h"

#include "mainwindow/icons/Icons.h"
#include "settings/Settings.h"

#include <algorithm>
#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace mainwindow {

SmartMenu::SmartMenu(QMenuBar &bar, QWidget &window) : QObject(&window), bar_(bar), window_(window) {}

void SmartMenu::BuildMenus(const QStringList &recentFiles) {
    bar_.clear();
    items_.clear();
    needing_.clear();
    menus_.clear();
    for (const CommandRow &row : Commands()) {
        if (row.offered && !row.offered()) continue;
        if (row.parent && QLatin1String(row.key) == QLatin1String(kRecentSeparator)) {
            if (!recentFiles.isEmpty()) AddRecentFiles(*Menu(QLatin1String(row.parent)), recentFiles);
        } else {
            AddRow(row);
        }
    }
}

void SmartMenu::AddRow(const CommandRow &row) {
    const QString key = QLatin1String(row.key);
    const QString caption = settings::ReplaceTerms(QString::fromUtf8(row.caption));
    QMenu *parent = Menu(QLatin1String(row.parent));
    if (row.kind == EntryKind::Menu) {
        QMenu *menu = parent ? parent->addMenu(caption) : bar_.addMenu(caption);
        menus_.insert(key, menu);
        items_.insert(key, menu->menuAction());
        menu->menuAction()->setObjectName(key);
        return;
    }
    if (row.kind == EntryKind::Separator) {
        parent->addSeparator()->setObjectName(key);
        return;
    }
    QAction *entry = row.parent ? AddEntry(parent, key, caption) : MakeEntry(&window_, key, caption);
    entry->setIcon(Icon(QLatin1String(row.image)));
    entry->setCheckable(row.kind == EntryKind::Check);
    AddKeys(row, *entry);
    if (!row.parent) window_.addAction(entry);
    needing_.insert(int(row.needs), entry);
}

QAction *SmartMenu::AddEntry(QMenu *menu, const QString &key, const QString &caption) {
    QAction *entry = MakeEntry(menu, key, caption);
    menu->addAction(entry);
    return entry;
}

QAction *SmartMenu::MakeEntry(QWidget *owner, const QString &key, const QString &caption) {
    auto *entry = new QAction(caption, owner);
    entry->setObjectName(key);
    entry->setMenuRole(QAction::NoRole);
    items_.insert(key, entry);
    connect(entry, &QAction::triggered, this, [this, key] { Q_EMIT Click(key); });
    return entry;
}

// The context of a surface's key keeps it from working as a shortcut: the menu only shows it.
void SmartMenu::AddKeys(const CommandRow &row, QAction &entry) {
    QList<QKeySequence> keys;
    for (const char *column : {row.accelerator, row.keys, row.surfaceKey})
        for (const QString &sequence : QString::fromLatin1(column).split(u' ', Qt::SkipEmptyParts))
            keys << QKeySequence(sequence);
    entry.setShortcuts(keys);
    if (*row.surfaceKey) entry.setShortcutContext(Qt::WidgetShortcut);
}

void SmartMenu::AddRecentFiles(QMenu &menu, const QStringList &files) {
    menu.addSeparator()->setObjectName(QLatin1String(kRecentSeparator));
    menu.setToolTipsVisible(true);
    for (const QString &file : files) {
        QString caption = RecentFileCaption(file);
        QAction *entry =
            AddEntry(&menu, QLatin1String(kRecentFile) + file, caption.replace(u'&', QLatin1String("&&")));
        entry->setData(file);
        entry->setToolTip(file);
    }
}

bool SmartMenu::Value(const QString &key) const {
    const QAction *entry = Item(key);
    return entry && entry->isChecked();
}

// The entries are part of the menu's state. NOLINTNEXTLINE(readability-make-member-function-const)
void SmartMenu::SetValue(const QString &key, bool checked) {
    if (QAction *entry = Item(key)) entry->setChecked(checked);
}

void SmartMenu::SetEnabled(Needs needs, bool enabled) {
    const auto [first, last] = std::as_const(needing_).equal_range(int(needs));
    std::for_each(first, last, [enabled](QAction *entry) { entry->setEnabled(enabled); });
}

} // namespace mainwindow
