// The doors of the desktop that need no window system.
#pragma once

#include "support/Desktop.h"

#include <QRandomGenerator>
#include <random>

namespace support {

class SystemClock : public Clock {
public:
    QDateTime Now() override;
    double Timer() override;
    void Wait(int milliseconds) override;
};

// Linux and macOS tell the memory available as a percentage of all, Windows the memory load.
class SystemMemoryProbe : public MemoryProbe {
public:
    // Nothing to tell reads as all memory free, or as a load of 100: no guard refuses either.
    MemoryReading Read() override;
};

class SystemRandom : public Random {
public:
    void Seed(double timer) override;
    double Next() override;
    std::array<std::uint8_t, 16> NewGuid() override;

private:
    std::minstd_rand generator_;
    // Asking the system for each GUID costs more than writing the row that it names.
    QRandomGenerator guids_ = QRandomGenerator::securelySeeded();
};

class SystemIdentity : public Identity {
public:
    QString UserName() override;
};

} // namespace support
