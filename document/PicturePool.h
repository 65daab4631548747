// The table Pictures of an open map.
#pragma once

#include "diagram/model/Picture.h"
#include "storage/Database.h"

#include <optional>
#include <QHash>
#include <QString>

namespace document {

class PicturePool {
public:
    // The database must outlive the pool.
    explicit PicturePool(storage::Database &database) : database_(&database) {}

    // The picture under the key, or none for an unknown or empty key. Error 481 "Invalid picture" for bytes
    // that are none.
    diagram::Picture Load(const QString &key);
    // Adds a row with the picture's bytes and gives its new key; an empty text for no picture. Equal pictures
    // are not shared.
    QString Save(const diagram::Picture &picture);

private:
    void IndexRows();

    storage::Database *database_;
    std::optional<QHash<QString, qlonglong>> rows_; // the first row of each key
    QHash<QString, diagram::Picture> loaded_;
    std::optional<storage::PreparedStatement> insert_;
};

// Loads the picture under the key into `picture` and gives the key. Without such a row: in save mode adds the
// picture, if there is one, and gives its new key; else an empty text. Errors have LocatePicture in their
// source.
QString LocatePicture(storage::Database &database, const QString &key, diagram::Picture &picture, bool bSave);

} // namespace document
