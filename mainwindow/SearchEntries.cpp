#include "mainwindow/SearchEntries.h"

#include "mainwindow/controls/ShapeMenu.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/menus/CommandMatch.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/FormatMenu.h"
#include "mainwindow/menus/SmartMenu.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/slices/LookBar.h"
#include "settings/Settings.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace mainwindow {

namespace {

QString WithTerms(const char *text) { return settings::ReplaceTerms(QString::fromUtf8(text)); }

// The menu of that key, with those around it.
QString PlaceIn(const char *parent) {
    if (!parent || !*parent) return {};
    for (const CommandRow &menu : Commands()) {
        if (menu.kind != EntryKind::Menu || QLatin1String(menu.key) != QLatin1String(parent)) continue;
        const QString outer = PlaceIn(menu.parent), caption = PlainCaption(WithTerms(menu.caption));
        return outer.isEmpty() ? caption : outer + QStringLiteral(" \u203a ") + caption;
    }
    return {};
}

void AddCommands(frmMain &window, SmartMenu &menu, std::vector<SearchEntry> &entries) {
    for (const CommandRow &row : Commands()) {
        if (!row.routine || (row.offered && !row.offered())) continue;
        const QString key = QLatin1String(row.key);
        QAction *item = menu.Item(key);
        entries.push_back({.caption = PlainCaption(WithTerms(row.caption)),
                           .place = PlaceIn(row.parent),
                           .words = WithTerms(row.tip) + u' ' + TipOfMainButton(key),
                           .keys = KeysOf(row),
                           .icon = Icon(QLatin1String(row.image)),
                           .enabled = !item || item->isEnabled(),
                           .run = [&window, &menu, key] {
                               if (QAction *entry = menu.Item(key))
                                   entry->trigger();
                               else
                                   window.SmartMenuXP1_Click(key);
                           }});
    }
}

void AddFormats(Toolbar &format, std::vector<SearchEntry> &entries) {
    for (const ButtonRow &row : FormatButtons()) {
        QAction *button = format.Button(QLatin1String(row.key));
        if (!button || *row.command) continue; // its command has a line already
        entries.push_back({.caption = WithTerms(row.tip),
                           .place = PlaceIn(MenuOfFormat(QLatin1String(row.key))),
                           .words = frmMain::tr("Format"),
                           .keys = button->shortcut().toString(QKeySequence::NativeText),
                           .icon = button->icon(),
                           .enabled = button->isEnabled(),
                           .run = [button] { button->trigger(); }});
    }
}

// A line for each value that the selection can be given, such as "Fill: sky"; for a colour that isn't listed
// there is the command that opens the popup.
void AddLooks(frmMain &window, std::vector<SearchEntry> &entries) {
    for (const LookRow &row : LookRows()) {
        if (!window.Look().State(row.what).fits) continue;
        const QString caption = QCoreApplication::translate("mainwindow::Look", row.caption);
        for (const widgets::ChoiceSection &section : window.Look().Choices(row.what))
            for (const widgets::Choice &choice : section.choices)
                if (choice.isValue)
                    entries.push_back({.caption = frmMain::tr("%1: %2").arg(caption, choice.name),
                                       .place = {},
                                       .words = frmMain::tr("Look"),
                                       .keys = {},
                                       .icon = choice.icon,
                                       .run = choice.choose});
    }
}

} // namespace

std::vector<SearchEntry> SearchEntries(frmMain &window, SmartMenu &menu, Toolbar &format) {
    std::vector<SearchEntry> entries;
    AddCommands(window, menu, entries);
    AddFormats(format, entries);
    AddLooks(window, entries);
    for (const ShapeEntry &shape : ShapeEntries())
        entries.push_back({.caption = frmMain::tr("New %1").arg(shape.caption),
                           .place = {},
                           .words = frmMain::tr("shape element"),
                           .keys = {},
                           .icon = ShapeIcon(shape.tag),
                           .run = [&window, tag = shape.tag] { window.tlbFormat_ButtonMenuClick(tag); }});
    return entries;
}

} // namespace mainwindow
