// What the running process tells of itself. Linux only, as the figures are.
#pragma once

#include <ctime>
#include <QFile>
#include <unistd.h>

namespace bench {

// From the kernel's start of this process, to 10 ms; -1 when it can't be read.
inline double SecondsSinceStart() {
    QFile file(QStringLiteral("/proc/self/stat"));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 20) return -1;
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9 -
           fields[19].toDouble() / double(sysconf(_SC_CLK_TCK));
}

// Resident memory of this process in KiB; 0 when it can't be read.
inline long ResidentKiB() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray &line : file.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

} // namespace bench
