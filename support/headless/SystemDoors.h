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
    // Where the platform tells nothing: all free, on Windows a load of 100. No guard refuses for either.
    MemoryReading Read() override;
};

class SystemRandom : public Random {
public:
    void Seed(double timer) override;
    double Next() override;
    std::array<std::uint8_t, 16> NewGuid() override;

private:
    std::minstd_rand generator_;
    // Seeded once: asking the system for each GUID would take longer than writing the row that has it as key.
    QRandomGenerator guids_ = QRandomGenerator::securelySeeded();
};

class SystemIdentity : public Identity {
public:
    QString UserName() override;
};

} // namespace support
