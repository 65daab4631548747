#include "support/modDefPrinter.h"

namespace support {

void SetDefaultPrinter(const QString &) {}

} // namespace support
