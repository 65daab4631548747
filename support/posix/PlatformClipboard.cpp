#include "support/PlatformClipboard.h"

namespace support::platform {

// Other programs of these platforms ask for MIME types, which Qt's clipboard has.
bool PutPictureOnClipboard(const PictureFile &, const PictureFile &, const PictureFile &) { return false; }

} // namespace support::platform
