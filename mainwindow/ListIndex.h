// Finding and selecting entries of a list of choices, by what they say or by the number that they stand for.
#pragma once

#include <QString>

class QComboBox;

namespace mainwindow {

// Positions count from 0, -1 is none. The texts are compared exactly, the first match counts.
int DoFindIndex2(const QComboBox &list, const QString &text);
int DoFindIndex(const QComboBox &list, int value); // by the entry's data

// Selects the entry, or none where it isn't there; with `bAdd` that text is added behind the others and
// selected. The box tells nobody: its signals for a choice come from the user alone.
void DoSetIndex2(QComboBox &list, const QString &text, bool bAdd);
void DoSetIndex(QComboBox &list, int value);

} // namespace mainwindow
