// Typed values under a root, a path and a name: what the registry is on Windows. Roots, paths and names are
// the same on every platform. Paths have backslashes between their parts and are compared, like names,
// without regard to case; the spelling of the first writer stays.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace support {

enum class RegistryRoot : std::uint32_t {
    ClassesRoot = 0x80000000,
    CurrentUser = 0x80000001,
    LocalMachine = 0x80000002,
};

// "HKEY_CURRENT_USER" and the like; "&H" and the hexadecimal number for any other value.
QString RegistryRootName(std::uint32_t root);

enum class RegistryType {
    String = 1,
    ExpandableString = 2,
    Binary = 3,
    Number = 4,
    BigEndianNumber = 5,
    MultipleStrings = 7,
};

// A value with its type. `data` is a QString for the types 1 and 2, a QByteArray for 3, a quint32 for 4 and
// 5, a QStringList for 7.
struct RegistryValue {
    RegistryType type = RegistryType::String;
    QVariant data;

    friend bool operator==(const RegistryValue &, const RegistryValue &) = default;
};

// Orders names without regard to case, so that two spellings of one name are the same key of a map.
struct CaseBlindLess {
    bool operator()(const QString &a, const QString &b) const {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    }
};

// The values of one key, by their names.
using RegistryValues = std::map<QString, RegistryValue, CaseBlindLess>;

// No operation raises an error: false means that it could not be done.
class RegistryStore {
public:
    virtual ~RegistryStore() = default;

    virtual bool KeyExists(RegistryRoot root, const QString &path) = 0;
    // Creates the key with its parents; true when it is there already.
    virtual bool CreateKey(RegistryRoot root, const QString &path) = 0;
    // Deletes the key with its values; false when it does not exist or has keys below it.
    virtual bool DeleteKey(RegistryRoot root, const QString &path) = 0;
    // An empty name is the key's default value.
    virtual std::optional<RegistryValue> Read(RegistryRoot root, const QString &path,
                                              const QString &name) = 0;
    // Creates the key where it is missing.
    virtual bool Write(RegistryRoot root, const QString &path, const QString &name,
                       const RegistryValue &value) = 0;
    // Writes several values of one key, in one go where the store can; false when one could not be written.
    virtual bool WriteAll(RegistryRoot root, const QString &path, const RegistryValues &values);
    virtual bool DeleteValue(RegistryRoot root, const QString &path, const QString &name) = 0;
    // The names of the values of a key, and of the keys directly below it.
    virtual QStringList Values(RegistryRoot root, const QString &path) = 0;
    virtual QStringList Sections(RegistryRoot root, const QString &path) = 0;
};

// The keys of one store in memory: full path ("HKEY_CURRENT_USER\SOFTWARE\...") -> name -> value. Parents of
// a key are always keys themselves.
class RegistryTree {
public:
    using Key = RegistryValues;

    const std::map<QString, Key, CaseBlindLess> &Keys() const { return keys_; }
    // The key, or null.
    const Key *Find(const QString &fullPath) const;
    // The key, made with its parents where missing.
    Key &Create(const QString &fullPath);
    bool Delete(const QString &fullPath);
    QStringList Sections(const QString &fullPath) const;

    std::optional<RegistryValue> Value(const QString &fullPath, const QString &name) const;
    bool DeleteValue(const QString &fullPath, const QString &name);
    QStringList Values(const QString &fullPath) const;

private:
    std::map<QString, Key, CaseBlindLess> keys_;
};

// "HKEY_...\path" with doubled and outer backslashes taken out.
QString RegistryFullPath(RegistryRoot root, const QString &path);

// A store that lives as long as the object; for tests, and for programs that must not touch the user's.
class MemoryRegistryStore : public RegistryStore {
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

private:
    RegistryTree tree_;
};

} // namespace support
