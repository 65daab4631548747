// The small routines on files and paths that the whole program shares.
//
// Paths come in two spellings: the platform's own, and those that maps brought from Windows. On every
// platform a text that starts with "X:" or with "\\", or that holds backslashes and does not start with a
// slash, is read with the backslash as a separator too; a path that starts with a slash has the slash alone.
#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

namespace support {

// Bits of GetFileAttribs and of the second argument of GetFiles.
namespace fileattributes {
constexpr int kNormal = 0;
constexpr int kReadOnly = 1;
constexpr int kHidden = 2; // on platforms without such an attribute: the name starts with a point
constexpr int kSystem = 4;
constexpr int kDirectory = 16;
} // namespace fileattributes

// The separator that `path` is written with, to be put behind it; the platform's own when the text has none.
QChar SeparatorOf(const QString &path);
// The position of the last separator of `path`, or -1.
qsizetype LastSeparator(const QString &path);

// `text` with `ending` added if its last characters aren't that ending. An empty text gives the ending.
QString AddBackslash(const QString &text, const QString &ending);
// `folder` with SeparatorOf(folder) at its end, unless it ends in a separator of its spelling already.
QString AddBackslash(const QString &folder);

// True for an existing file that isn't a folder; false on any error.
bool FileExists(const QString &path);
// Whether both paths lead to one file or folder. Links are followed. Of names that differ in upper and lower
// case alone the file system decides; where it can't, as one of them doesn't exist, `sensitivity` does.
// Without that, two paths of Windows are compared without regard to case, all others as is usual on the
// platform.
bool IsSameFile(const QString &a, const QString &b);
bool IsSameFile(const QString &a, const QString &b, Qt::CaseSensitivity sensitivity);
// True for an existing folder; false on any error.
bool DirExists(const QString &path);

// The part behind the last separator, without the part from its last "." on when `bWithExt` is false. Error 5
// "Invalid procedure call or argument" for a name without a point then.
QString GetFileTitle(const QString &path, bool bWithExt);
// The part behind the last separator.
QString FileTitle(const QString &path);

// The system's temporary folder, with no separator at its end.
QString TempPath();
// A fresh, empty file in the temporary folder, readable by the user alone; its name starts with up to three
// characters of `prefix`, "ABC" when that is empty. The caller deletes it. Error 75 when it cannot be made.
QString GetTempFile(const QString &prefix = QString());

// The names, without their folder, that match `pattern`: a folder with its separator, then a name in which *
// and ? stand for any text and any character, upper and lower case alike; "*.*" matches every name. Ordinary
// and read-only files always match; `attributes` adds hidden ones, system ones, and folders with "." and
// "..". Sorted by name without regard to case. A folder that cannot be read gives no names.
QStringList GetFiles(const QString &pattern, int attributes);
// A sum of the bits above. Error 53 "File not found" with the path.
int GetFileAttribs(const QString &path);

// True for a file or folder that this user may not write, or that has every right to write taken away, which
// even an administrator's program respects.
bool IsReadOnly(const QString &path);
// Deletes a file. Error 53 when there is none, 70 or 75 when it may not be deleted, each with the path.
void Kill(const QString &path);
// Takes the read-only attribute away; does nothing when there is no such file.
void ClearReadOnly(const QString &path);

// The folder of the executable, with no separator at its end: the delivered files stand there.
QString ProgramPath();
// Sets another folder, for tests; an empty text puts the executable's own back.
void SetProgramPath(const QString &folder);

} // namespace support
