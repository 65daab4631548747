// Pictures as the user hands them in: files, what is pasted, and what is dropped.
#pragma once

#include "diagram/model/Picture.h"

#include <QString>

class QMimeData;

namespace dialogs {

// The picture in the file; none for a file that holds no picture, is damaged, missing or too large to be one.
diagram::Picture PictureIn(const QString &file);
// Whether the ending of the name is that of a picture.
bool IsNamedLikeAPicture(const QString &file);

// Whether the data may hold a picture: one file of this machine, or an image.
bool MayHoldPicture(const QMimeData &data);
// That picture; none as for a file.
diagram::Picture PictureIn(const QMimeData &data);
// The name of the one file of this machine that the data are; empty for anything else.
QString FileIn(const QMimeData &data);

} // namespace dialogs
