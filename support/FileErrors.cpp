#include "support/FileErrors.h"

#include "support/Error.h"

namespace support {

namespace {

using platform::Failure;

struct FailureNumber {
    Failure failure;
    long number;
};
constexpr FailureNumber kFailureNumbers[] = {
    {Failure::NotFound, kErrFileNotFound}, {Failure::NoPermission, kErrPermissionDenied},
    {Failure::DiskFull, kErrDiskFull},     {Failure::NoFolder, kErrPathNotFound},
    {Failure::Access, kErrPathFileAccess},
};

} // namespace

void Raise(Failure failure, const char *routine, const QString &path) {
    for (const FailureNumber &row : kFailureNumbers)
        if (row.failure == failure) support::Raise(row.number, QString::fromLatin1(routine), path);
    throw Error(kErrPathFileAccess, QString::fromLatin1(routine), path);
}

void RaiseIfFailed(Failure failure, const char *routine, const QString &path) {
    if (failure != Failure::None) Raise(failure, routine, path);
}

} // namespace support
