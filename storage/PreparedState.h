// What a PreparedStatement holds; for the facade's own sources.
#pragma once

#include "storage/Connection.h"

namespace storage {

struct PreparedStatement::State {
    std::shared_ptr<Connection> connection;
    QString sql;
    Statement statement;

    void Check(int code) const {
        if (code != SQLITE_OK) connection->Check(code, sql);
    }
};

} // namespace storage
