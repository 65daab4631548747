// Folders inside the temporary folder that only the user may read.
#pragma once

#include "support/Platform.h"

#include <QString>
#include <QStringList>

namespace support {

// A folder with a name that nobody can foretell. It is held by a lock for as long as the object lives and
// goes with it, content and all.
class PrivateFolder {
public:
    // `purpose` stands in the folder's name: letters only. Error 75 "Path/File access error" when no folder
    // can be made.
    explicit PrivateFolder(const QString &purpose);
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder &) = delete;
    PrivateFolder &operator=(const PrivateFolder &) = delete;

    // With no separator at its end.
    const QString &Path() const { return path_; }

private:
    QString path_;
    std::unique_ptr<platform::FileLock> lock_;
};

// Removes this user's folders of that purpose which no living process holds. One that is just being made is
// left alone; one that nobody has locked at all is removed a day after its last change.
void SweepPrivateFolders(const QString &purpose);

// A folder of that purpose that stays: the one there is, or a new one. Error 75.
QString LastingPrivateFolder(const QString &purpose);
// All of them: two processes that began at once may have made one each.
QStringList LastingPrivateFolders(const QString &purpose);

} // namespace support
