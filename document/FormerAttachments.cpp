#include "document/FormerAttachments.h"

#include "document/MapSchema.h"
#include "support/Error.h"

namespace document {

namespace {

// The bytes of the rows with a key, a node's key and a file name; Null counts as empty.
QString SelectData() {
    using namespace schema::attachment;
    const auto text = [](int column) {
        return QStringLiteral("COALESCE(%1, '')=?").arg(Bracketed(schema::kAttachments, column));
    };
    return QStringLiteral("SELECT %1 FROM [%2] WHERE %3 AND %4 AND %5")
        .arg(Bracketed(schema::kAttachments, kData), NameOf(schema::kAttachments), text(kKey), text(kNodeKey),
             text(kFilename));
}

QByteArray ReadBytes(storage::Database &database, const StoredAttachment &stored) {
    storage::Recordset rows =
        database.OpenRecordset(SelectData(), {stored.Key, stored.NodeKey, stored.Filename});
    for (int i = 0; i < stored.Position; ++i) rows.MoveNext();
    return rows.Bytes(0);
}

} // namespace

storage::Database *FormerAttachments::MapOf(const QString &path) {
    if (path_ != path) {
        path_ = path;
        database_.reset();
        database_.emplace(storage::OpenDatabase(path));
    }
    return database_ ? &*database_ : nullptr;
}

// Errors are swallowed: the caller reports that the attachment's file is missing.
std::optional<QByteArray> FormerAttachments::BytesOf(const cAttachment &attachment) {
    if (attachment.Stored.Map.isEmpty()) return std::nullopt;
    try {
        storage::Database *map = MapOf(attachment.Stored.Map);
        return map ? std::optional(ReadBytes(*map, attachment.Stored)) : std::nullopt;
    } catch (const support::Error &) {
        return std::nullopt;
    }
}

} // namespace document
