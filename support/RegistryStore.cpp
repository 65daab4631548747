#include "support/RegistryStore.h"

#include <algorithm>

namespace support {

namespace {

// "a\b\c" -> "a\b"; empty for a root.
QString ParentOf(const QString &fullPath) {
    return fullPath.left(qMax(qsizetype(0), fullPath.lastIndexOf(u'\\')));
}

QString NameOf(const QString &fullPath) { return fullPath.mid(fullPath.lastIndexOf(u'\\') + 1); }

} // namespace

QString RegistryRootName(std::uint32_t root) {
    switch (static_cast<RegistryRoot>(root)) {
    case RegistryRoot::ClassesRoot:
        return QStringLiteral("HKEY_CLASSES_ROOT");
    case RegistryRoot::CurrentUser:
        return QStringLiteral("HKEY_CURRENT_USER");
    case RegistryRoot::LocalMachine:
        return QStringLiteral("HKEY_LOCAL_MACHINE");
    }
    return QStringLiteral("&H") + QString::number(root, 16).toUpper();
}

QString RegistryFullPath(RegistryRoot root, const QString &path) {
    QStringList parts = path.split(u'\\', Qt::SkipEmptyParts);
    parts.prepend(RegistryRootName(static_cast<std::uint32_t>(root)));
    return parts.join(u'\\');
}

bool RegistryStore::WriteAll(RegistryRoot root, const QString &path, const RegistryValues &values) {
    return std::all_of(values.begin(), values.end(),
                       [&](const auto &value) { return Write(root, path, value.first, value.second); });
}

const RegistryTree::Key *RegistryTree::Find(const QString &fullPath) const {
    const auto found = keys_.find(fullPath);
    return found == keys_.end() ? nullptr : &found->second;
}

RegistryTree::Key &RegistryTree::Create(const QString &fullPath) {
    for (QString parent = ParentOf(fullPath); !parent.isEmpty(); parent = ParentOf(parent))
        keys_.try_emplace(parent);
    return keys_[fullPath];
}

bool RegistryTree::Delete(const QString &fullPath) {
    if (!Sections(fullPath).isEmpty()) return false;
    return keys_.erase(fullPath) > 0;
}

QStringList RegistryTree::Sections(const QString &fullPath) const {
    QStringList names;
    for (const auto &[path, key] : keys_)
        if (ParentOf(path).compare(fullPath, Qt::CaseInsensitive) == 0) names.append(NameOf(path));
    return names;
}

std::optional<RegistryValue> RegistryTree::Value(const QString &fullPath, const QString &name) const {
    const Key *key = Find(fullPath);
    if (!key) return std::nullopt;
    const auto found = key->find(name);
    if (found == key->end()) return std::nullopt;
    return found->second;
}

bool RegistryTree::DeleteValue(const QString &fullPath, const QString &name) {
    const auto found = keys_.find(fullPath);
    return found != keys_.end() && found->second.erase(name) > 0;
}

QStringList RegistryTree::Values(const QString &fullPath) const {
    QStringList names;
    if (const Key *key = Find(fullPath))
        for (const auto &[name, value] : *key) names.append(name);
    return names;
}

bool MemoryRegistryStore::KeyExists(RegistryRoot root, const QString &path) {
    return tree_.Find(RegistryFullPath(root, path)) != nullptr;
}

bool MemoryRegistryStore::CreateKey(RegistryRoot root, const QString &path) {
    tree_.Create(RegistryFullPath(root, path));
    return true;
}

bool MemoryRegistryStore::DeleteKey(RegistryRoot root, const QString &path) {
    return tree_.Delete(RegistryFullPath(root, path));
}

std::optional<RegistryValue> MemoryRegistryStore::Read(RegistryRoot root, const QString &path,
                                                       const QString &name) {
    return tree_.Value(RegistryFullPath(root, path), name);
}

bool MemoryRegistryStore::Write(RegistryRoot root, const QString &path, const QString &name,
                                const RegistryValue &value) {
    tree_.Create(RegistryFullPath(root, path))[name] = value;
    return true;
}

bool MemoryRegistryStore::DeleteValue(RegistryRoot root, const QString &path, const QString &name) {
    return tree_.DeleteValue(RegistryFullPath(root, path), name);
}

QStringList MemoryRegistryStore::Values(RegistryRoot root, const QString &path) {
    return tree_.Values(RegistryFullPath(root, path));
}

QStringList MemoryRegistryStore::Sections(RegistryRoot root, const QString &path) {
    return tree_.Sections(RegistryFullPath(root, path));
}

} // namespace support
