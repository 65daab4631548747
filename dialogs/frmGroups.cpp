#include "dialogs/frmGroups.h"

#include "document/MapWindow.h"
#include "settings/Settings.h"

namespace dialogs {

frmGroups::frmGroups(GroupsFormArgument &argument, QWidget *parent)
    : NamesForm({GroupsFormArgument::kForm, QStringLiteral("Groups"), QStringLiteral("&Groups"),
                 QStringLiteral("Group")},
                NameList::Colours::None, argument.window, argument.status, parent),
      oGroups_(argument.oGroups) {
    ShowRows(RowsOf(oGroups_));
}

void frmGroups::lvwColor_AfterLabelEdit(QTreeWidgetItem &row, const QString &text) {
    constexpr QChar kComma = u',';
    const auto takesWithout = [this] {
        return Window().Desktop().messageBoxes.Show(
                   QStringLiteral(
                       "Commas (,) are not allowed.\r\rWould you like to use this text with commas?"),
                   support::Buttons::YesNo, support::Icon::Question,
                   settings::Terms().TITLE) == support::Answer::Yes;
    };
    if (text.contains(kComma) && !takesWithout()) return;
    row.setText(0, QString(text).remove(kComma));
}

void frmGroups::Store(NameRows &rows) { StoreRows(rows, oGroups_); }

} // namespace dialogs
