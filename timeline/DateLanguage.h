// The dates of a timeline that was made in another language, or says its years in two digits.
#pragma once

#include <QLocale>

namespace diagram {
class Surface;
}

namespace timeline {

// The first of the hundred years that two digits stand for among the months of the surface: those around the
// years that other months tell in full; kStoredCentury where none does.
int CenturyOf(const diagram::Surface &Flow);

// Writes the dates whose month names are those of another language in the user's, so that they can be
// compared as texts again. What language they are in, all of them together decide. Those whose two digits of
// a year mean another one than they would by themselves are written out too. The texts of months stay as
// they are until they are laid out.
void TranslateDates(diagram::Surface &Flow, const QLocale &locale = QLocale());

} // namespace timeline
