// The registry of the platform that the program runs on.
#pragma once

#include "support/RegistryStore.h"

#include <memory>

namespace support {

// The real registry on Windows, a FileRegistryStore elsewhere.
std::unique_ptr<RegistryStore> CreatePlatformRegistry();

} // namespace support
