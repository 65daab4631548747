#include "dialogs/ListIndex.h"

#include <QComboBox>
#include <QListWidget>

namespace dialogs {

namespace {

// The first row for which that holds, or -1.
template <typename Condition>
int FirstRow(const QListWidget &list, Condition condition) {
    for (int row = 0; row < list.count(); ++row)
        if (condition(*list.item(row))) return row;
    return -1;
}

} // namespace

int DoFindIndex2(const QComboBox &list, const QString &text) {
    return list.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

int DoFindIndex2(const QListWidget &list, const QString &text) {
    return FirstRow(list, [&](const QListWidgetItem &item) { return item.text() == text; });
}

int DoFindIndex(const QComboBox &list, int value) { return list.findData(value); }

int DoFindIndex(const QListWidget &list, int value) {
    return FirstRow(list, [&](const QListWidgetItem &item) { return item.data(Qt::UserRole) == value; });
}

void DoSetIndex2(QComboBox &list, const QString &text, bool bAdd) {
    int index = DoFindIndex2(list, text);
    if (index < 0 && bAdd) {
        list.addItem(text);
        index = list.count() - 1;
    }
    list.setCurrentIndex(index);
    if (list.isEditable()) list.setEditText(index < 0 ? QString() : text); // what was typed goes
}

void DoSetIndex(QComboBox &list, int value) { list.setCurrentIndex(DoFindIndex(list, value)); }

void DoSetIndex(QListWidget &list, int value) { list.setCurrentRow(DoFindIndex(list, value)); }

} // namespace dialogs
