// Whole programs, from their start.
#pragma once

#include <QStringList>

namespace bench {

struct Start {
    double seconds = 0; // from the start of the process to the first painted window
    double residentKiB = 0;
};

// The best of several starts of a program that prints "painted SECONDS" and "resident KIB" and ends.
Start BestStart(const QStringList &command);
// Seconds of the best of several runs; the program must end with 0, else this ends the bench with a message.
double BestRun(const QStringList &command);

} // namespace bench
