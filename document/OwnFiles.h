// Which files a window may save over without keeping what they hold: those that it wrote itself, and those
// that it read whole in the program's own form, as long as nobody else has written to them since.
#pragma once

#include <optional>
#include <QDateTime>
#include <QHash>
#include <QString>

namespace document {

// How a file stood at some time.
struct FileStamp {
    qint64 size = 0;
    QDateTime modified;
    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

class OwnFiles {
public:
    // Notes the file as it is now.
    void Add(const QString &path);
    void Forget(const QString &path);
    bool Contains(const QString &path) const;
    // Notes the state in which the window last read or wrote the file, whatever its form.
    void Saw(const QString &path);
    // Whether somebody else has written to the file since then; false for one that is gone or was never seen.
    bool ChangedSinceSeen(const QString &path) const;

    // What was noted, to be taken up by another window that goes on with this one's work.
    std::optional<FileStamp> Seen(const QString &path) const; // none for a file that was never seen
    bool IsOwn(const QString &path) const;                    // as it was when it was last seen
    void TakeUp(const QString &path, const FileStamp &seen, bool own);

private:
    static FileStamp StampOf(const QString &path);

    QHash<QString, FileStamp> stamps_, seen_;
};

// Copies the file to a new file beside it: its name with .bak behind it, or .1.bak, .2.bak and so on where
// that is taken. Gives the path of the copy.
QString KeepBeside(const QString &path);

} // namespace document
