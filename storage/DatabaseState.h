// What a Database holds; for the facade's own sources.
#pragma once

#include "storage/Connection.h"

namespace storage {

struct Database::State {
    State(std::shared_ptr<Connection> opened, QString path, bool native)
        : connection(std::move(opened)), name(std::move(path)), isNative(native) {}

    std::shared_ptr<Connection> connection; // null once the database was closed
    QString name;
    bool isNative;
    int depth = 0; // open transactions, one in the other

    // The connection; 3420 when the database was closed.
    Connection &Open();
};

// The absolute path with the platform's separators, as databases are named.
QString FullPath(const QString &path);

} // namespace storage
