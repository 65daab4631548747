// Files that appear together: they are written into a hidden folder beside their targets, then put in their
// places one after the other. Files that were not committed are deleted with the object.
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
    // Puts all files in their places, where they replace former ones.
    void Commit();

private:
    QString folder_;
    std::unique_ptr<QTemporaryDir> hidden_;
    QStringList names_;
};

} // namespace output
