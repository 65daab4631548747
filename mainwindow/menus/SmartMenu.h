// The menu bar, built from the rows of the commands and reached by their keys.
#pragma once

#include "mainwindow/menus/Commands.h"

#include <QHash>
#include <QObject>
#include <QStringList>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace mainwindow {

class SmartMenu : public QObject {
    Q_OBJECT
public:
    // Shortcuts work in `window`, which owns the bar.
    SmartMenu(QMenuBar &bar, QWidget &window);

    // Empties the bar and fills it anew, with one entry for each recent file above the last separator of the
    // File menu.
    void BuildMenus(const QStringList &recentFiles);

    // The entry with that key; null for a key that names none.
    QAction *Item(const QString &key) const { return items_.value(key); }
    QMenu *Menu(const QString &key) const { return menus_.value(key); }
    // The state of a check entry; false and no effect for a key that names none.
    bool Value(const QString &key) const;
    void SetValue(const QString &key, bool checked);
    // Enables the entries that need `needs`.
    void SetEnabled(Needs needs, bool enabled);

Q_SIGNALS:
    void Click(const QString &key);

private:
    void AddRow(const CommandRow &row);
    static void AddKeys(const CommandRow &row, QAction &entry);
    void AddRecentFiles(QMenu &menu, const QStringList &files);
    QAction *AddEntry(QMenu *menu, const QString &key, const QString &caption);
    QAction *MakeEntry(QWidget *owner, const QString &key, const QString &caption);

    QMenuBar &bar_;
    QWidget &window_;
    QHash<QString, QAction *> items_;
    QMultiHash<int, QAction *> needing_; // by what they need
    QHash<QString, QMenu *> menus_;
};

} // namespace mainwindow
