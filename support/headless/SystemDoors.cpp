#include "support/headless/SystemDoors.h"

#include "support/Platform.h"

#include <cmath>
#include <cstring>
#include <QEventLoop>
#include <QTimer>

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
    std::array<quint32, 4> words{};
    guids_.fillRange(words.data(), static_cast<qsizetype>(words.size()));
    std::array<std::uint8_t, 16> guid{};
    std::memcpy(guid.data(), words.data(), guid.size());
    guid[6] = static_cast<std::uint8_t>((guid[6] & 0x0F) | 0x40); // version 4: random
    guid[8] = static_cast<std::uint8_t>((guid[8] & 0x3F) | 0x80); // the variant of RFC 4122
    return guid;
}

QString SystemIdentity::UserName() { return platform::UserName(); }

} // namespace support
