// The delivered files that the user can replace by the program (the empty map and the default nodes), and the
// folders of templates. They stand in the program's folder, and where that may not be written, in a folder of
// the user's own.
#pragma once

#include <QStringList>

namespace settings {

// Full path of the file with that name, for readers: the user's own copy where there is one and the program's
// folder may not be written; else the file in the program's folder, whether or not it is there.
QString PathToRead(const QString &name);
// Where a new version of the file goes, so that PathToRead finds it afterwards. The user's folder is made
// when it is needed. Error 76 when that can't be done.
QString PathToWrite(const QString &name);

// Tells the user which of the files just written are copies of their own, if any, and why.
void TellOfOwnCopies(const QStringList &paths);

// The folders of templates, with a separator at their ends: the one beside the program, and the user's own.
// Neither need be there.
QString TemplatesFolder();
QString OwnTemplatesFolder();
// Where a new template goes: the first where it may be written, else the second. The folder is made when it
// isn't there. Error 76 when that can't be done.
QString FolderForTemplates();

} // namespace settings
