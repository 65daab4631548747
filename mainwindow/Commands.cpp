#include "mainwindow/Commands.h"

#include "app/settings/Settings.h"
#include "support/Desktop.h"

#include <array>

namespace mainwindow {

namespace {
constexpr int kRecentCaptionLength = 25;

std::array<std::span<const CommandRow>, 10> Tables() {
    return {FileCommands(), EditCommands(),    ViewCommands(),    LayoutCommands(), HelpCommands(),
            KeyCommands(),  EditKeyCommands(), ArrangeCommands(), FindCommands(),   LookCommands()};
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

void ShowUnknownKey(support::Desktop &desktop, const QString &key) {
    desktop.messageBoxes.Show(QStringLiteral("Unknown Key ") + key, support::Buttons::Ok, support::Icon::None,
                              settings::Terms().TITLE);
}

QString RecentFileCaption(const QString &path) {
    if (path.length() <= kRecentCaptionLength) return path;
    return QStringLiteral("...") + path.right(kRecentCaptionLength);
}

} // namespace mainwindow
