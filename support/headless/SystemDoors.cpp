#include "support/headless/SystemDoors.h"

#include "support/Platform.h"

#include <cmath>
#include <limits>
#include <QEventLoop>
#include <QTimer>
#include <QUuid>

namespace support {

QDateTime SystemClock::Now() { return QDateTime::currentDateTime(); }

double SystemClock::Timer() { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; }

void SystemClock::Wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

MemoryReading SystemMemoryProbe::Read() {
    const int available = platform::AvailableMemoryPercent();
    if (available >= 0) return {available, std::nullopt};
    const int load = platform::MemoryLoadPercent();
#ifdef Q_OS_WIN
    return {std::nullopt, load >= 0 ? load : 100};
#else
    Q_UNUSED(load);
    return {100, std::nullopt};
#endif
}

void SystemRandom::Seed(double timer) {
    generator_.seed(
        static_cast<std::minstd_rand::result_type>(std::fmod(std::abs(timer) * 1000, 2147483646.0)) + 1);
    generator_.discard(2); // neighbouring seeds start with neighbouring numbers
}

double SystemRandom::Next() {
    constexpr double kRange = static_cast<double>(std::minstd_rand::max()) - std::minstd_rand::min() + 1;
    return (static_cast<double>(generator_()) - std::minstd_rand::min()) / kRange;
}

std::array<std::uint8_t, 16> SystemRandom::NewGuid() {
    const QByteArray bytes = QUuid::createUuid().toRfc4122();
    std::array<std::uint8_t, 16> guid{};
    for (std::size_t i = 0; i < guid.size(); ++i)
        guid[i] = static_cast<std::uint8_t>(bytes[static_cast<qsizetype>(i)]);
    return guid;
}

QString SystemIdentity::UserName() { return platform::UserName(); }

} // namespace support
