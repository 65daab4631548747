#include "support/FileErrors.h"

#include "support/Error.h"

namespace support {

namespace {

using platform::Failure;

// Error number and text of a failure.
struct FailureText {
    Failure failure;
    long number;
    const char *text;
};
constexpr FailureText kFailureTexts[] = {
    {Failure::NotFound, kErrFileNotFound, "File not found"},
    {Failure::NoPermission, kErrPermissionDenied, "Permission denied"},
    {Failure::DiskFull, kErrDiskFull, "Disk full"},
    {Failure::NoFolder, kErrPathNotFound, "Path not found"},
    {Failure::Access, kErrPathFileAccess, "Path/File access error"},
};

} // namespace

void Raise(Failure failure, const char *routine, const QString &path) {
    for (const FailureText &row : kFailureTexts)
        if (row.failure == failure)
            throw Error(row.number, QString::fromLatin1(routine),
                        QStringLiteral("%1: %2").arg(QLatin1String(row.text), path));
    throw Error(kErrPathFileAccess, QString::fromLatin1(routine), path);
}

void RaiseIfFailed(Failure failure, const char *routine, const QString &path) {
    if (failure != Failure::None) Raise(failure, routine, path);
}

} // namespace support
