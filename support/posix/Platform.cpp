#include "support/Platform.h"

#include "support/PlatformFlush.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <pwd.h>
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>
#ifdef Q_OS_MACOS
#include <mach-o/dyld.h>
#include <mach/mach.h>
#include <sys/sysctl.h>
#endif

namespace support::platform {

namespace {

class Descriptor {
public:
    Descriptor(const QString &path, int flags, mode_t mode = 0)
        : number_(open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode)) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    explicit operator bool() const { return number_ >= 0; }
    int Number() const { return number_; }

private:
    int number_;
};

Failure FailureOf(int number) {
    switch (number) {
    case ENOENT:
        return Failure::NotFound;
    case ENOTDIR:
        return Failure::NoFolder;
    case EACCES:
    case EPERM:
    case EROFS:
        return Failure::NoPermission;
    case ENOSPC:
    case EFBIG:
    case EDQUOT:
        return Failure::DiskFull;
    default:
        return Failure::Access;
    }
}

Failure Flush(const Descriptor &descriptor) {
    if (!descriptor) return FailureOf(errno);
#ifdef F_FULLFSYNC
    if (fcntl(descriptor.Number(), F_FULLFSYNC) == 0) return Failure::None;
#endif
    return fsync(descriptor.Number()) == 0 ? Failure::None : FailureOf(errno);
}

class FlockLock : public FileLock {
public:
    FlockLock(const QString &path, int flags) : descriptor_(path, O_RDWR | flags, 0600) {}
    bool Opened() const { return static_cast<bool>(descriptor_); }
    bool Try() { return flock(descriptor_.Number(), LOCK_EX | LOCK_NB) == 0; }

private:
    Descriptor descriptor_; // closing it gives the lock back
};

// Waits for as long as somebody else has the lock; a file system without locks ends it at once.
std::unique_ptr<FileLock> WaitFor(std::unique_ptr<FlockLock> lock, int milliseconds) {
    constexpr int kStep = 2; // milliseconds
    if (!lock->Opened()) return nullptr;
    for (int waited = 0; !lock->Try(); waited += kStep) {
        if (errno != EWOULDBLOCK && errno != EINTR) return nullptr;
        if (waited >= milliseconds) return nullptr;
        QThread::msleep(kStep);
    }
    return lock;
}

// The folder that the variable names, or the usual one below the home folder.
QString UsersFolder([[maybe_unused]] const char *variable, [[maybe_unused]] const char *usual) {
#ifdef Q_OS_MACOS
    return QDir::homePath() + QStringLiteral("/Library/Application Support");
#else
    // A relative path in such a variable counts as none.
    const QString named = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(named) ? QDir::cleanPath(named) : QDir::homePath() + QLatin1String(usual);
#endif
}

} // namespace

Qt::CaseSensitivity PathCase() {
#ifdef Q_OS_MACOS
    return Qt::CaseInsensitive;
#else
    return Qt::CaseSensitive;
#endif
}

QByteArray FileIdentity(const QString &path) {
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0) return {};
    return QByteArray::number(qulonglong(status.st_dev)) + ':' +
           QByteArray::number(qulonglong(status.st_ino));
}

Failure FlushFile(const QString &path) { return Flush(Descriptor(path, O_RDONLY)); }

void BeginFlush([[maybe_unused]] const QString &path) {
#ifdef Q_OS_LINUX
    const Descriptor descriptor(path, O_RDONLY);
    if (descriptor) sync_file_range(descriptor.Number(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

Failure Rename(const QString &newFile, const QString &target) {
    if (std::rename(QFile::encodeName(newFile).constData(), QFile::encodeName(target).constData()) != 0)
        return FailureOf(errno);
    return Failure::None;
}

// Failures are passed over: some file systems cannot flush a folder.
void FlushFolder(const QString &folder) { Flush(Descriptor(folder, O_RDONLY | O_DIRECTORY)); }

Failure RenameOver(const QString &newFile, const QString &target) {
    const Failure failure = Rename(newFile, target);
    if (failure == Failure::None) FlushFolder(QFileInfo(target).absolutePath());
    return failure;
}

Failure CreateNew(const QString &path) {
    const Descriptor descriptor(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (descriptor) return Failure::None;
    return errno == ENOENT ? Failure::NoFolder : FailureOf(errno);
}

bool IsPrivateFolder(const QString &path) {
    struct stat status {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

Failure WriteFile(const QString &path, const QByteArray &bytes, WriteMode mode) {
    const Descriptor descriptor(path, O_WRONLY | (mode == WriteMode::Append ? O_APPEND : O_TRUNC));
    if (!descriptor) return FailureOf(errno);
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count = write(descriptor.Number(), bytes.constData() + written,
                                    static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR) return FailureOf(errno);
        written += qMax(ssize_t(0), count);
    }
    return Failure::None;
}

void CopyPermissions(const QString &model, const QString &path) {
    struct stat status {};
    if (stat(QFile::encodeName(model).constData(), &status) != 0) return;
    chmod(QFile::encodeName(path).constData(), status.st_mode & 07777);
}

QString ExecutablePath() {
#ifdef Q_OS_MACOS
    std::array<char, PATH_MAX> buffer{};
    auto size = static_cast<std::uint32_t>(buffer.size());
    return _NSGetExecutablePath(buffer.data(), &size) == 0 ? QFile::decodeName(buffer.data()) : QString();
#else
    return QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
#endif
}

QString CompanionProgram(const QString &name) {
    return QFileInfo(ExecutablePath()).absolutePath() + u'/' + name;
}

QString ShortForm(const QString &) { return QString(); }

QString LongForm(const QString &) { return QString(); }

QString WindowsFolder() { return QStringLiteral("/usr"); }

QString SystemFolder() { return QStringLiteral("/usr/lib"); }

QString StateFolder() { return UsersFolder("XDG_STATE_HOME", "/.local/state"); }
QString ConfigFolder() { return UsersFolder("XDG_CONFIG_HOME", "/.config"); }
QString CacheFolder() {
#ifdef Q_OS_MACOS
    return QDir::homePath() + QStringLiteral("/Library/Caches");
#else
    return UsersFolder("XDG_CACHE_HOME", "/.cache");
#endif
}
QString DataFolder() { return UsersFolder("XDG_DATA_HOME", "/.local/share"); }

bool MayWriteInto(const QString &folder) {
    const QByteArray path = QFile::encodeName(folder);
    struct stat status {};
    if (stat(path.constData(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
    const bool anyMay = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
    return anyMay && access(path.constData(), W_OK | X_OK) == 0;
}

bool MakePrivateFolder(const QString &path) {
    const QFileInfo folder(path);
    if (!QDir().mkpath(folder.absolutePath())) return false;
    const bool made = mkdir(QFile::encodeName(path).constData(), 0700) == 0;
    return made || (errno == EEXIST && QFileInfo(path).isDir());
}

QString UserName() {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd *found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
        return QFile::decodeName(found->pw_name);
    return qEnvironmentVariable("USER");
}

std::unique_ptr<FileLock> Lock(const QString &path, int milliseconds) {
    return WaitFor(std::make_unique<FlockLock>(path, O_CREAT), milliseconds);
}

std::unique_ptr<FileLock> LockExisting(const QString &path, int milliseconds) {
    return WaitFor(std::make_unique<FlockLock>(path, O_NOFOLLOW), milliseconds);
}

#ifdef Q_OS_MACOS
int AvailableMemoryPercent() {
    std::uint64_t total = 0;
    std::size_t size = sizeof total;
    vm_statistics64_data_t statistics{};
    mach_msg_type_number_t count = HOST_VM_INFO64_COUNT;
    if (sysctlbyname("hw.memsize", &total, &size, nullptr, 0) != 0 || total == 0) return -1;
    if (host_statistics64(mach_host_self(), HOST_VM_INFO64, reinterpret_cast<host_info64_t>(&statistics),
                          &count) != KERN_SUCCESS)
        return -1;
    const std::uint64_t pages = statistics.free_count + statistics.inactive_count +
                                static_cast<std::uint64_t>(statistics.purgeable_count);
    return static_cast<int>(pages * static_cast<std::uint64_t>(getpagesize()) * 100 / total);
}
#else
int AvailableMemoryPercent() {
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    qint64 total = 0;
    qint64 available = -1;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() < 2) continue;
        if (words[0] == "MemTotal:") total = words[1].toLongLong();
        if (words[0] == "MemAvailable:") available = words[1].toLongLong();
    }
    return total > 0 && available >= 0 ? static_cast<int>(available * 100 / total) : -1;
}
#endif

int MemoryLoadPercent() { return -1; }

} // namespace support::platform
