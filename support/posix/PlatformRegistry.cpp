#include "support/PlatformRegistry.h"

#include "support/FileRegistryStore.h"

namespace support {

std::unique_ptr<RegistryStore> CreatePlatformRegistry() {
    return std::make_unique<FileRegistryStore>(FileRegistryStore::ForPlatform());
}

} // namespace support
