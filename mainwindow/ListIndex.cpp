#include "mainwindow/ListIndex.h"

#include <QComboBox>

namespace mainwindow {

int DoFindIndex2(const QComboBox &list, const QString &text) {
    return list.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
}

int DoFindIndex(const QComboBox &list, int value) { return list.findData(value); }

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

} // namespace mainwindow
