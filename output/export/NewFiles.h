// Files that come into being together: written beside their targets where nobody looks, then put in their
// places one after the other. What isn't put there goes with the object.
#pragma once

#include <memory>
#include <QByteArray>
#include <QString>
#include <QStringList>

class QTemporaryDir;

namespace output {

class NewFiles {
public:
    // Error 75 when nothing can be written in the folder.
    explicit NewFiles(const QString &folder);
    ~NewFiles();
    NewFiles(const NewFiles &) = delete;
    NewFiles &operator=(const NewFiles &) = delete;

    // `name` has no folder. Error 75 for a file that is there and may not be written, 61 for a full disk.
    void Add(const QString &name, const QByteArray &bytes);
    // Replaces what is there.
    void Commit();

private:
    QString folder_;
    std::unique_ptr<QTemporaryDir> hidden_;
    QStringList names_;
};

} // namespace output
