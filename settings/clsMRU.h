// The list of recent files: 26 slots named a to z, and their order, most recent first.
#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

namespace support {
class RegistryStore;
}

namespace settings {

class clsMRU {
public:
    // On the registry of the current desktop, for the edition that Terms() names.
    clsMRU();
    // The store must outlive the object.
    explicit clsMRU(support::RegistryStore &store) : store_(store) {}

    // Notes `path` as the most recent. A path that differs only in case reuses its slot. Once all 26 are
    // taken, each new path overwrites slot a. Error 26001.
    void AddFile(const QString &path);
    // Takes the path off the list: its slot is empty and left out of the order. Nothing for one that isn't on
    // it. Error 26001.
    void RemoveFile(const QString &path);
    // The path in a slot, or an empty text.
    QString File2(QChar letter) const;
    // The path at a position of the order, from 1, or an empty text.
    QString File(int position) const;
    // The existing files at the positions from `start` to below `count`, without repetition: in lower case,
    // or as stored where the file system tells the two apart. A count above 26 is taken as 26, a start below
    // 1 as 1. Files that are missing are left out and keep their slots.
    QStringList GetFiles(int count, int start = 1) const;

private:
    support::RegistryStore &store_;
};

} // namespace settings
