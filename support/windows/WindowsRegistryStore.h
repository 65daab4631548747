// The registry of Windows behind the program's own interface.
#pragma once

#include "support/RegistryStore.h"

namespace support {

class WindowsRegistryStore : public RegistryStore {
public:
    bool KeyExists(RegistryRoot root, const QString &path) override;
    bool CreateKey(RegistryRoot root, const QString &path) override;
    bool DeleteKey(RegistryRoot root, const QString &path) override;
    std::optional<RegistryValue> Read(RegistryRoot root, const QString &path, const QString &name) override;
    bool Write(RegistryRoot root, const QString &path, const QString &name,
               const RegistryValue &value) override;
    bool DeleteValue(RegistryRoot root, const QString &path, const QString &name) override;
    QStringList Values(RegistryRoot root, const QString &path) override;
    QStringList Sections(RegistryRoot root, const QString &path) override;
};

} // namespace support
