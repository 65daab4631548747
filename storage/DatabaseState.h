// What a Database holds; for the facade's own sources.
#pragma once

#include "storage/Connection.h"

namespace storage {

struct Database::State {
    std::shared_ptr<Connection> connection;
    QString name;
    bool isNative = true;
    int depth = 0; // open transactions, one in the other

    // The connection; 3420 when the database was closed.
    Connection &Open();
};

} // namespace storage
