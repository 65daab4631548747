// What the files of a report are called.
#pragma once

#include "support/Desktop.h"

#include <QString>

namespace output {

// `Filename` without its last four characters, "_", the number, "." and the last three characters of
// `Filename`: an ending is taken to have three letters, whatever it has.
QString PageName(const QString &Filename, int number);

// What the pictures of a slice's page begin with: the index in two digits, and the last two characters of a
// random number.
QString PicturePrefix(support::Desktop &desktop, int index);

// Whether the name stands for a file of rich text, and not of pages.
bool IsRichText(const QString &Filename);

} // namespace output
