#include "support/Platform.h"

#include "support/PlatformFlush.h"

#include <array>
#include <QDir>
#include <QFileInfo>
#include <string>

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

namespace support::platform {

namespace {

class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

std::wstring Native(const QString &path) { return QDir::toNativeSeparators(path).toStdWString(); }

Failure FailureOf(DWORD number) {
    switch (number) {
    case ERROR_FILE_NOT_FOUND:
        return Failure::NotFound;
    case ERROR_PATH_NOT_FOUND:
        return Failure::NoFolder;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return Failure::NoPermission;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return Failure::DiskFull;
    default:
        return Failure::Access;
    }
}

// Calls a function that fills a buffer and returns the length it needs.
template <typename Function>
QString Filled(Function function) {
    std::wstring buffer(MAX_PATH, L'\0');
    for (int attempt = 0; attempt < 2; ++attempt) {
        const DWORD length = function(buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length == 0) return QString();
        if (length < buffer.size()) return QString::fromWCharArray(buffer.data(), static_cast<int>(length));
        buffer.resize(length + 1);
    }
    return QString();
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Locks a place far behind the end of the file, so that its content can be read and written meanwhile.
class RangeLock : public FileLock {
public:
    RangeLock(const QString &path, DWORD creation)
        : file_(CreateFileW(Native(path).c_str(), GENERIC_READ | GENERIC_WRITE, kShareAll, nullptr, creation,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    bool Opened() const { return static_cast<bool>(file_); }
    bool Try() {
        OVERLAPPED place{};
        place.OffsetHigh = 0x7FFFFFFF;
        return LockFileEx(file_.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                          &place) != 0;
    }

private:
    Handle file_; // closing it gives the lock back
};

std::unique_ptr<FileLock> WaitFor(std::unique_ptr<RangeLock> lock, int milliseconds) {
    constexpr int kStep = 2; // milliseconds
    if (!lock->Opened()) return nullptr;
    for (int waited = 0; !lock->Try(); waited += kStep) {
        if (GetLastError() != ERROR_LOCK_VIOLATION && GetLastError() != ERROR_IO_PENDING) return nullptr;
        if (waited >= milliseconds) return nullptr;
        Sleep(kStep);
    }
    return lock;
}

} // namespace

Qt::CaseSensitivity PathCase() { return Qt::CaseInsensitive; }

QByteArray FileIdentity(const QString &) { return {}; }

Failure FlushFile(const QString &path) {
    const Handle file(CreateFileW(Native(path).c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file || !FlushFileBuffers(file.Get())) return FailureOf(GetLastError());
    return Failure::None;
}

void BeginFlush(const QString &) {}

// MOVEFILE_WRITE_THROUGH: the folder's entry is on the disk when the call returns.
Failure Rename(const QString &newFile, const QString &target) {
    if (MoveFileExW(Native(newFile).c_str(), Native(target).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return Failure::None;
    return FailureOf(GetLastError());
}

void FlushFolder(const QString &) {}

Failure RenameOver(const QString &newFile, const QString &target) { return Rename(newFile, target); }

Failure CreateNew(const QString &path) {
    const Handle file(CreateFileW(Native(path).c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? Failure::None : FailureOf(GetLastError());
}

// The temporary folder of Windows is the user's own, and what is made in it inherits its rights.
bool IsPrivateFolder(const QString &path) {
    const DWORD attributes = GetFileAttributesW(Native(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

Failure WriteFile(const QString &path, const QByteArray &bytes, WriteMode mode) {
    const bool append = mode == WriteMode::Append;
    const Handle file(CreateFileW(Native(path).c_str(), append ? FILE_APPEND_DATA : GENERIC_WRITE, kShareAll,
                                  nullptr, append ? OPEN_EXISTING : TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                  nullptr));
    if (!file) return FailureOf(GetLastError());
    constexpr qsizetype kBlock = 1 << 26;
    for (qsizetype at = 0; at < bytes.size(); at += kBlock) {
        const auto size = static_cast<DWORD>(qMin(kBlock, bytes.size() - at));
        DWORD written = 0;
        if (!::WriteFile(file.Get(), bytes.constData() + at, size, &written, nullptr))
            return FailureOf(GetLastError());
        if (written != size) return Failure::DiskFull;
    }
    return Failure::None;
}

void CopyPermissions(const QString &model, const QString &path) {
    const DWORD attributes = GetFileAttributesW(Native(model).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
        SetFileAttributesW(Native(path).c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

QString ExecutablePath() {
    return Filled([](wchar_t *buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); });
}

QString CompanionProgram(const QString &name) {
    return QFileInfo(ExecutablePath()).absolutePath() + u'/' + name + QStringLiteral(".exe");
}

QString ShortForm(const QString &path) {
    const std::wstring native = Native(path);
    return Filled(
        [&](wchar_t *buffer, DWORD size) { return GetShortPathNameW(native.c_str(), buffer, size); });
}

QString LongForm(const QString &path) {
    const std::wstring native = Native(path);
    return Filled(
        [&](wchar_t *buffer, DWORD size) { return GetLongPathNameW(native.c_str(), buffer, size); });
}

QString WindowsFolder() {
    return Filled([](wchar_t *buffer, DWORD size) { return GetWindowsDirectoryW(buffer, size); });
}

QString SystemFolder() {
    return Filled([](wchar_t *buffer, DWORD size) { return GetSystemDirectoryW(buffer, size); });
}

QString StateFolder() { return QDir::cleanPath(qEnvironmentVariable("LOCALAPPDATA", QDir::homePath())); }

QString CacheFolder() { return QDir::cleanPath(qEnvironmentVariable("LOCALAPPDATA", QDir::homePath())); }

QString DataFolder() { return QDir::cleanPath(qEnvironmentVariable("APPDATA", QDir::homePath())); }

QString ConfigFolder() { return QDir::cleanPath(qEnvironmentVariable("APPDATA", QDir::homePath())); }

// The rights of a folder come from several lists, so the sure way to know is to make a file, which is deleted
// as soon as it is closed.
bool MayWriteInto(const QString &folder) {
    const QString probe = QStringLiteral("%1/.%2.probe").arg(folder).arg(GetCurrentProcessId());
    const Handle file(CreateFileW(Native(probe).c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE,
                                  nullptr));
    return static_cast<bool>(file);
}

// The folder stands in the user's own profile, which others may not read.
bool MakePrivateFolder(const QString &path) { return QDir().mkpath(path); }

QString UserName() {
    std::array<wchar_t, 257> buffer{};
    auto size = static_cast<DWORD>(buffer.size());
    return GetUserNameW(buffer.data(), &size) ? QString::fromWCharArray(buffer.data()) : QString();
}

std::unique_ptr<FileLock> Lock(const QString &path, int milliseconds) {
    return WaitFor(std::make_unique<RangeLock>(path, OPEN_ALWAYS), milliseconds);
}

std::unique_ptr<FileLock> LockExisting(const QString &path, int milliseconds) {
    return WaitFor(std::make_unique<RangeLock>(path, OPEN_EXISTING), milliseconds);
}

int AvailableMemoryPercent() { return -1; }

int MemoryLoadPercent() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? static_cast<int>(status.dwMemoryLoad) : -1;
}

} // namespace support::platform
