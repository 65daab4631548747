// What a file is by its content.
#pragma once

#include <QString>

namespace storage {

enum class FileForm { Native, Jet, Unknown };

// Reads the beginning of the file. 3024 when there is none, 3051 for a folder or a file that may not be read.
FileForm RecogniseFile(const QString &path);

// The header of a file in the program's own form.
struct NativeHeader {
    qint64 pageSize = 0;
    qint64 pages = 0;     // 0 when the header does not tell it
    qint64 freePages = 0; // pages that hold nothing
};

// Reads the header; 3049 when it is cut off or its page size cannot be.
NativeHeader ReadNativeHeader(const QString &path);
// 3049 when the file is shorter than its header says, as after a copy that broke off. A file whose last
// change still waits in a journal beside it is not judged.
void CheckNativeSize(const QString &path);
// True when a journal stands beside the file, so that the file alone does not tell its content.
bool HasJournal(const QString &path);

} // namespace storage
