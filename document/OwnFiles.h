// Which files a window may save over without keeping what they hold: those that it wrote itself, and those
// that it read whole in the program's own form, as long as nobody else has written to them since.
#pragma once

#include <optional>
#include <QDateTime>
#include <QHash>
#include <QString>

namespace document {

// The state of a file at some time, as far as it tells whether somebody has written to it since.
struct FileStamp {
    qint64 size = 0;
    QDateTime modified;
    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

class OwnFiles {
public:
    // The window has just written the file, or read it whole in the program's own form.
    void Add(const QString &path);
    // The file is no longer one that may be saved over; when it was last seen is kept.
    void Forget(const QString &path);
    // Whether the file was added and nobody has written to it since.
    bool Contains(const QString &path) const;
    // The window has just read or written the file, whatever its form.
    void Saw(const QString &path);
    // Whether somebody else has written to the file since then; false for one that is gone or was never seen.
    bool ChangedSinceSeen(const QString &path) const;

    // The following carry over what was noted to a window that goes on with this one's work.
    // The file's state when it was last seen; none for a file that never was.
    std::optional<FileStamp> Seen(const QString &path) const;
    // Whether the file could have been saved over without a copy when it was last seen.
    bool IsOwn(const QString &path) const;
    void TakeUp(const QString &path, const FileStamp &seen, bool own);

private:
    static FileStamp StampOf(const QString &path);

    QHash<QString, FileStamp> own_, seen_; // by path
};

// Copies the file to a new file beside it: its name with .bak behind it, or .1.bak, .2.bak and so on where
// that is taken. Gives the path of the copy.
QString KeepBeside(const QString &path);

} // namespace document
