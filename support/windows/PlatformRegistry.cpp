#include "support/PlatformRegistry.h"

#include "support/windows/WindowsRegistryStore.h"

namespace support {

std::unique_ptr<RegistryStore> CreatePlatformRegistry() { return std::make_unique<WindowsRegistryStore>(); }

} // namespace support
