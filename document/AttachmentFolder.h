// Where the files of embedded attachments stand while their map is open.
#pragma once

#include "support/PrivateFolder.h"

#include <memory>
#include <QString>

namespace document {

// A folder of one window's own inside the temporary folder, readable by the user alone. It is made when it is
// first needed and goes with the object.
class AttachmentFolder {
public:
    // A path inside the folder for a file that a map stores under that name, of which only the file title
    // counts; where that title is taken, in a folder of its own. No file is there yet. Error 75 when a folder
    // can't be made.
    QString NewPath(const QString &storedName);
    // Whether the path leads into the folder.
    bool Holds(const QString &path) const;
    // Lets go of the folder with all files in it; the next path gets a new one.
    void Clear() { folder_.reset(); }

private:
    std::unique_ptr<support::PrivateFolder> folder_;
    int doubles_ = 0; // the number of folders made for titles that were taken
};

// Removes the folders of windows whose process has ended without removing them.
void SweepAttachmentFolders();

} // namespace document
