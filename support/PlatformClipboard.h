// Pictures on the clipboard in forms that only the platform knows; one source file per platform.
#pragma once

#include <functional>
#include <QByteArray>

namespace support::platform {

// Replaces the clipboard's content by the picture whose files these give: an enhanced metafile, a placeable
// one of sixteen bits, PNG. False, with nothing done, where Qt's clipboard has to serve; the files are not
// asked for then. Call it from the thread of the windows.
using PictureFile = std::function<QByteArray()>;
bool PutPictureOnClipboard(const PictureFile &emf, const PictureFile &wmf, const PictureFile &png);

} // namespace support::platform
