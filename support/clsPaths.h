// Path forms and known folders.
#pragma once

#include <QString>

namespace support {

class clsPaths {
public:
    // The part of `path` behind its last separator.
    QString DoGetFileTitle(const QString &path) const;
    // The folder, up to and without the last separator; the separator stays behind a root. Empty without one.
    QString DoGetFilePath(const QString &path) const;
    // The 8.3 form on platforms that have one, elsewhere and on failure the path itself.
    QString shortName(const QString &path) const;
    // The long form: absolute and cleaned of "." and "..". An empty path, and a Windows path on another
    // platform, come back as they are.
    QString LongName(const QString &path) const;
    // The long form in the spelling of the folders: each part is looked up in its parent, hidden and system
    // entries included, exact case first; a part that isn't found stays as it is.
    QString LongName2(const QString &path) const;
    // The user's documents folder with a separator at its end: the registry's value, else the platform's
    // documents folder if there is one, else the program's folder.
    QString GetMyDocsPath() const;
    // The same for folders that exist alone: the registry's value, else the platform's documents folder, else
    // the home folder.
    QString GetMyDocsOrHomePath() const;
    // The system's folders with a separator at their ends; on platforms other than Windows /usr/ and
    // /usr/lib/.
    QString GetWinDir() const;
    QString GetSysDir() const;
};

} // namespace support
