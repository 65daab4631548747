// A copy of a damaged file of the program's own form, made so that the library opens it.
#pragma once

#include "storage/Connection.h"

namespace storage {

class SalvageCopy {
public:
    // Copies the file, with the journal of a change that was not finished, into the folder. Sets right in the
    // copy what its header says against the file's size. With `model`, the path of a sound file, the first
    // page is that file's. Errors 3051, 3049 and 3183.
    SalvageCopy(const QString &path, const QString &folder, const QString &model);

    // The connection tolerates a definition that is damaged in parts.
    Connection &Open() const { return *connection_; }

private:
    std::unique_ptr<Connection> connection_;
};

} // namespace storage
