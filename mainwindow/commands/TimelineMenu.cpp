#include "mainwindow/commands/TimelineMenu.h"

#include "mainwindow/icons/Icons.h"

namespace mainwindow {

namespace {

struct EntryRow {
    const char *key; // empty: a separator
    const char *caption = "";
    const char *image = "";
};
constexpr EntryRow kRows[] = {
    {"mnuTemplateNodeOpen", "Timeline Settings...", "timeline"},
    {""},
    {"mnuTemplateNodeHide", "Hide"},
    {"mnuTemplateNodeUnHide", "UnHide"},
    {""},
    {"mnuTemplateNodeFold", "Fold"},
    {"mnuTemplateNodeFoldQuarter", "Fold Quarter"},
    {"mnuTemplateNodeFoldYear", "Fold Year"},
    {"mnuTemplateNodeUnfoldAll", "Unfold All"},
};

} // namespace

TimelineMenu::TimelineMenu(QWidget *parent) : QMenu(parent) {
    setObjectName(QStringLiteral("SMXP"));
    for (const EntryRow &row : kRows) {
        const QString key = QLatin1String(row.key);
        if (key.isEmpty()) {
            addSeparator();
            continue;
        }
        QAction *entry = addAction(Icon(QLatin1String(row.image)), QLatin1String(row.caption));
        entry->setObjectName(key);
        connect(entry, &QAction::triggered, this, [this, key] { Q_EMIT Click(key); });
    }
}

QAction *TimelineMenu::Item(const QString &key) const { return findChild<QAction *>(key); }

} // namespace mainwindow
