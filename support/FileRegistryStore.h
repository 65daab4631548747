// The registry of platforms that have none: text files (RegistryText.h) that a person can read and edit.
#pragma once

#include "support/RegistryStore.h"

#include <functional>
#include <QString>
#include <QStringList>

namespace support {

// Every read looks at the file anew, and every write reads it, changes it and replaces it under a lock, so
// that programs that run at once see each other's values and lose none.
class FileRegistryStore : public RegistryStore {
public:
    // `userFile` holds the roots of the user and of classes; `machineFiles` hold the machine's root: reading
    // takes the first that has the value, writing goes to the first.
    FileRegistryStore(QString userFile, QStringList machineFiles);
    // Files at the platform's places: velmora/registry.ini in the user's configuration folder and in the
    // machine's.
    static FileRegistryStore ForPlatform();

    const QString &UserFile() const { return userFile_; }

    bool KeyExists(RegistryRoot root, const QString &path) override;
    bool CreateKey(RegistryRoot root, const QString &path) override;
    bool DeleteKey(RegistryRoot root, const QString &path) override;
    std::optional<RegistryValue> Read(RegistryRoot root, const QString &path, const QString &name) override;
    bool Write(RegistryRoot root, const QString &path, const QString &name,
               const RegistryValue &value) override;
    bool WriteAll(RegistryRoot root, const QString &path, const RegistryValues &values) override;
    bool DeleteValue(RegistryRoot root, const QString &path, const QString &name) override;
    QStringList Values(RegistryRoot root, const QString &path) override;
    QStringList Sections(RegistryRoot root, const QString &path) override;

private:
    QStringList FilesOf(RegistryRoot root) const;
    // Reads the root's first file, lets `change` work on it and writes it back when that gives true.
    bool Change(RegistryRoot root, const std::function<bool(RegistryTree &)> &change) const;

    QString userFile_;
    QStringList machineFiles_;
};

} // namespace support
