#include "support/PlatformClipboard.h"

namespace support::platform {

// MIME types are the platform's own here.
bool PutPictureOnClipboard(const PictureFile &, const PictureFile &, const PictureFile &) { return false; }

} // namespace support::platform
