// What the lists of the setup form offer; the position in a list is the stored value.
#pragma once

#include <QStringList>

namespace timeline {

QStringList AutoSizes();
QStringList DrawStyles();
QStringList Shadows();
QStringList Orientations();
QStringList Placements(); // of texts
QStringList Arrangements();
// "0" to that number.
QStringList Numbers(int last);

} // namespace timeline
