// The guide in the words of an edition.
#pragma once

#include "settings/Settings.h"

#include <QString>

namespace product {

// The markdown with the words map, slice, node and link, and the name of the program, as the edition has
// them. What stands in code spans keeps its words, but for the name of the program's folders; the verb "to
// link" stays as it is.
QString InTermsOf(const settings::ProductTerms &terms, const QString &markdown);

} // namespace product
