#include "support/FileRegistryStore.h"

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Platform.h"
#include "support/RegistryText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace support {

namespace {

constexpr char kFileName[] = "/velmora/registry.ini";
constexpr int kLockMilliseconds = 10000;

// A missing file holds nothing; one that is there and cannot be read gives nothing back, so that no write
// empties it.
std::optional<RegistryTree> ReadTree(const QString &file) {
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        if (QFileInfo::exists(file)) return std::nullopt;
        return RegistryTree();
    }
    return ReadRegistryText(input.readAll());
}

// Gives each of the trees of `files` that can be read to `visit`.
template <typename Visit>
void ForEachTree(const QStringList &files, Visit visit) {
    for (const QString &file : files)
        if (const std::optional<RegistryTree> tree = ReadTree(file)) visit(*tree);
}

QStringList Merged(const QStringList &first, const QStringList &second) {
    QStringList names = first;
    for (const QString &name : second)
        if (!names.contains(name, Qt::CaseInsensitive)) names.append(name);
    return names;
}

} // namespace

FileRegistryStore::FileRegistryStore(QString userFile, QStringList machineFiles)
    : userFile_(std::move(userFile)), machineFiles_(std::move(machineFiles)) {}

FileRegistryStore FileRegistryStore::ForPlatform() {
    const QString userFolder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QStringList machineFiles;
    for (const QString &folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        if (folder != userFolder) machineFiles.append(folder + QLatin1String(kFileName));
#ifdef Q_OS_MACOS
    machineFiles.prepend(QStringLiteral("/Library/Preferences") + QLatin1String(kFileName));
#endif
    return FileRegistryStore(userFolder + QLatin1String(kFileName), machineFiles);
}

QStringList FileRegistryStore::FilesOf(RegistryRoot root) const {
    return root == RegistryRoot::LocalMachine ? machineFiles_ : QStringList{userFile_};
}

bool FileRegistryStore::Change(RegistryRoot root, const std::function<bool(RegistryTree &)> &change) const {
    const QString file = FilesOf(root).value(0);
    if (file.isEmpty() || !QDir().mkpath(QFileInfo(file).absolutePath())) return false;
    const auto lock = platform::Lock(file + QStringLiteral(".lock"), kLockMilliseconds);
    if (!lock) return false;
    std::optional<RegistryTree> tree = ReadTree(file);
    if (!tree || !change(*tree)) return false;
    try {
        AtomicFile output(file);
        output.Write(WriteRegistryText(*tree));
        output.Commit();
    } catch (const Error &) {
        return false; // the interface tells failures by result
    }
    return true;
}

bool FileRegistryStore::KeyExists(RegistryRoot root, const QString &path) {
    bool exists = false;
    ForEachTree(FilesOf(root), [&](const RegistryTree &tree) {
        exists = exists || tree.Find(RegistryFullPath(root, path)) != nullptr;
    });
    return exists;
}

bool FileRegistryStore::CreateKey(RegistryRoot root, const QString &path) {
    return Change(root, [&](RegistryTree &tree) {
        tree.Create(RegistryFullPath(root, path));
        return true;
    });
}

bool FileRegistryStore::DeleteKey(RegistryRoot root, const QString &path) {
    return Change(root, [&](RegistryTree &tree) { return tree.Delete(RegistryFullPath(root, path)); });
}

std::optional<RegistryValue> FileRegistryStore::Read(RegistryRoot root, const QString &path,
                                                     const QString &name) {
    std::optional<RegistryValue> value;
    ForEachTree(FilesOf(root), [&](const RegistryTree &tree) {
        if (!value) value = tree.Value(RegistryFullPath(root, path), name);
    });
    return value;
}

bool FileRegistryStore::Write(RegistryRoot root, const QString &path, const QString &name,
                              const RegistryValue &value) {
    return WriteAll(root, path, {{name, value}});
}

bool FileRegistryStore::WriteAll(RegistryRoot root, const QString &path, const RegistryValues &values) {
    return Change(root, [&](RegistryTree &tree) {
        RegistryTree::Key &key = tree.Create(RegistryFullPath(root, path));
        for (const auto &[name, value] : values) key[name] = value;
        return true;
    });
}

bool FileRegistryStore::DeleteValue(RegistryRoot root, const QString &path, const QString &name) {
    return Change(root,
                  [&](RegistryTree &tree) { return tree.DeleteValue(RegistryFullPath(root, path), name); });
}

QStringList FileRegistryStore::Values(RegistryRoot root, const QString &path) {
    QStringList names;
    ForEachTree(FilesOf(root), [&](const RegistryTree &tree) {
        names = Merged(names, tree.Values(RegistryFullPath(root, path)));
    });
    return names;
}

QStringList FileRegistryStore::Sections(RegistryRoot root, const QString &path) {
    QStringList names;
    ForEachTree(FilesOf(root), [&](const RegistryTree &tree) {
        names = Merged(names, tree.Sections(RegistryFullPath(root, path)));
    });
    return names;
}

} // namespace support
