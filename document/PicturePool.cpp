#include "document/PicturePool.h"

#include "document/MapSchema.h"
#include "support/clsGUID.h"
#include "support/Error.h"

namespace document {

using namespace schema::picture;

void PicturePool::IndexRows() {
    rows_.emplace();
    storage::Recordset rows =
        database_->OpenRecordset(QStringLiteral("SELECT rowid, %1 FROM [%2] ORDER BY rowid DESC")
                                     .arg(Bracketed(schema::kPictures, kKey), NameOf(schema::kPictures)));
    for (; !rows.EndOfFile(); rows.MoveNext())
        rows_->insert(rows.Text(1), static_cast<qlonglong>(rows.Double(0)));
}

diagram::Picture PicturePool::Load(const QString &key) {
    if (const auto known = loaded_.constFind(key); known != loaded_.constEnd()) return *known;
    if (!rows_) IndexRows();
    const auto row = rows_->constFind(key);
    if (row == rows_->constEnd()) return {};
    storage::Recordset rows =
        database_->OpenRecordset(QStringLiteral("SELECT %1 FROM [%2] WHERE rowid=?")
                                     .arg(Bracketed(schema::kPictures, kPicture), NameOf(schema::kPictures)),
                                 {*row});
    return *loaded_.insert(key, diagram::Picture::FromBytes(rows.Bytes(0)));
}

QString PicturePool::Save(const diagram::Picture &picture) {
    if (picture.IsNull()) return {};
    if (!insert_) insert_.emplace(database_->Prepare(InsertInto(schema::kPictures)));
    const QString key = support::GetGUID();
    insert_->BindText(kKey, key);
    insert_->BindBytes(kPicture, picture.Bytes());
    insert_->Run();
    return key;
}

QString LocatePicture(storage::Database &database, const QString &key, diagram::Picture &picture,
                      bool bSave) {
    return support::PassOn("LocatePicture", [&] {
        PicturePool pool(database);
        if (const diagram::Picture stored = pool.Load(key); !stored.IsNull()) {
            picture = stored;
            return key;
        }
        return bSave ? pool.Save(picture) : QString();
    });
}

} // namespace document
