#include "app/ProcessAge.h"

#include <QElapsedTimer>
#include <QFile>

namespace app {

namespace {

constexpr double kTicksASecond = 100; // of the kernel's interface
constexpr int kStartTime = 19;        // field of /proc/self/stat behind the name, from 0

QByteArray Content(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double SinceFirstCall() {
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return double(timer.elapsed()) / 1000;
}

} // namespace

double ProcessAge() {
    const QByteArray stat = Content(QStringLiteral("/proc/self/stat"));
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    const QByteArray uptime = Content(QStringLiteral("/proc/uptime")).split(' ').value(0);
    if (fields.size() <= kStartTime || uptime.isEmpty()) return SinceFirstCall();
    return uptime.toDouble() - fields.at(kStartTime).toDouble() / kTicksASecond;
}

long ResidentKiB() {
    for (const QByteArray &line : Content(QStringLiteral("/proc/self/status")).split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

} // namespace app
