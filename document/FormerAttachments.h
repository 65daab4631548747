// The bytes of embedded attachments whose files have gone: the map that they came from still holds them.
#pragma once

#include "document/cAttachment.h"
#include "storage/Database.h"

#include <optional>

namespace document {

class FormerAttachments {
public:
    // What the map holds that the attachment was last read from or written to. Nothing when there is no such
    // map any more, when it cannot be read, or when it has no such attachment. The map is opened once.
    std::optional<QByteArray> BytesOf(const cAttachment &attachment);

private:
    storage::Database *MapOf(const QString &path);

    QString path_;
    std::optional<storage::Database> database_;
};

} // namespace document
