// The dates of a timeline that was made in another language.
#pragma once

#include <QLocale>

namespace diagram {
class Surface;
}

namespace timeline {

// Writes the dates whose month names are those of another language in the user's, so that they can be
// compared as texts again. What language they are in, all of them together decide. The texts of months stay
// as they are until they are laid out.
void TranslateDates(diagram::Surface &Flow, const QLocale &locale = QLocale());

} // namespace timeline
