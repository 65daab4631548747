// The user's own template files, changed from the bar.
#pragma once

#include <QString>

namespace mainwindow {

// Whether the user may rename and delete what the folder holds.
bool MayChangeIn(const QString &folder);
// Gives the file another title, made fit for a file and with the ending kept, and returns where it is then.
// Error 58 "File already exists" and the name for one that is there, 75 where it can't be done.
QString RenameTemplate(const QString &file, const QString &title);
void DeleteTemplate(const QString &file);

} // namespace mainwindow
