// Text inside pages.
#pragma once

#include <QString>

namespace output {

// Text that browsers show letter for letter, in elements and in quoted attributes. Characters that pages may
// not hold are left out, halves of surrogate pairs become the replacement character.
QString HtmlText(const QString &text);

// The address of a file in the page's own folder.
QString AddressOf(const QString &fileName);

} // namespace output
