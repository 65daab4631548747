// Whole programs, from their start.
#pragma once

#include <QStringList>

namespace bench {

struct Start {
    double seconds = 0; // from its start to the line that it prints once its window is painted
    double residentKiB = 0;
};

// The best of several starts of a program that prints "painted SECONDS" and "resident KIB" and ends.
Start BestStart(const QStringList &command);
// Seconds of the best of several runs; the program must end with 0, else this ends the bench with a message.
double BestRun(const QStringList &command);

} // namespace bench
