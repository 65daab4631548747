#include "mainwindow/menus/Commands.h"

#include "settings/Settings.h"
#include "support/Desktop.h"

#include <array>
#include <QKeySequence>

namespace mainwindow {

namespace {
constexpr int kRecentCaptionLength = 25;

std::array<std::span<const CommandRow>, 13> Tables() {
    return {FileCommands(),    EditCommands(),  ViewCommands(),    ShapeCommands(), LayoutCommands(),
            ArrangeCommands(), HelpCommands(),  EditKeyCommands(), FindCommands(),  LookCommands(),
            ZoomKeyCommands(), DatesCommands(), GoCommands()};
}
} // namespace

std::vector<CommandRow> Commands() {
    std::vector<CommandRow> rows;
    for (const std::span<const CommandRow> table : Tables())
        rows.insert(rows.end(), table.begin(), table.end());
    return rows;
}

const CommandRow *FindCommand(const QString &key) {
    for (const std::span<const CommandRow> table : Tables())
        for (const CommandRow &row : table)
            if (row.routine && key == QLatin1String(row.key)) return &row;
    return nullptr;
}

QString KeysOf(const CommandRow &row) {
    for (const char *keys : {row.accelerator, row.keys, row.surfaceKey}) {
        const QString first = QString::fromLatin1(keys).section(u' ', 0, 0);
        if (!first.isEmpty()) return QKeySequence(first).toString(QKeySequence::NativeText);
    }
    return {};
}

QString WithKeys(const QString &tip, const QString &keys) {
    return keys.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, keys);
}

void ShowUnknownKey(support::Desktop &desktop, const QString &key) {
    desktop.messageBoxes.Show(QStringLiteral("Unknown Key ") + key, support::Buttons::Ok, support::Icon::None,
                              settings::Terms().TITLE);
}

QString RecentFileCaption(const QString &path) {
    if (path.length() <= kRecentCaptionLength) return path;
    return QStringLiteral("...") + path.right(kRecentCaptionLength);
}

} // namespace mainwindow
