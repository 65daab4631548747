// SMXP: the popup of a timeline node.
#pragma once

#include <QMenu>
#include <QString>

namespace mainwindow {

class TimelineMenu : public QMenu {
    Q_OBJECT
public:
    explicit TimelineMenu(QWidget *parent);

    // The entry with that key; null for a key that names none.
    QAction *Item(const QString &key) const;

Q_SIGNALS:
    void Click(const QString &key);
};

} // namespace mainwindow
