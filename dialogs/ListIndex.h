// Finding and selecting entries of a list of choices, by what they say or by the number that they stand for:
// the data that addItem gave them, Qt::UserRole in a list of rows.
#pragma once

#include <QString>

class QComboBox;
class QListWidget;

namespace dialogs {

// Positions count from 0, -1 is none. The texts are compared exactly, the first match counts.
int DoFindIndex2(const QComboBox &list, const QString &text);
int DoFindIndex2(const QListWidget &list, const QString &text);
int DoFindIndex(const QComboBox &list, int value); // by the entry's data
int DoFindIndex(const QListWidget &list, int value);

// Selects the entry, or none where it isn't there; with `bAdd` that text is added behind the others and
// selected. A box of choices tells nobody: its signals for a choice come from the user alone.
void DoSetIndex2(QComboBox &list, const QString &text, bool bAdd);
void DoSetIndex(QComboBox &list, int value);
void DoSetIndex(QListWidget &list, int value);

} // namespace dialogs
