// Margins beside what a printer needs.
#pragma once

#include <QMarginsF>
#include <QString>

namespace print {

// Which of the margins are narrower than the edge that the printer leaves blank, both in millimetres: a
// sentence that names them with the width of that edge. Empty where there are none; less than a tenth of a
// millimetre counts as nothing.
QString TextOfSides(const QMarginsF &margins, const QMarginsF &unprintable);

} // namespace print
