// How long whole programs take, and their memory.
#pragma once

#include <QStringList>

namespace bench {

// A program that doesn't end by itself and with 0 ends the bench with a message.

struct Start {
    double seconds = 0; // from its start to the line that it prints once its window is painted
    double residentKiB = 0;
};

// The best of several starts of a program that prints "painted SECONDS" and "resident KIB" and ends.
Start BestStart(const QStringList &command);
// Seconds of the best of several runs, from start to end.
double BestRun(const QStringList &command);

} // namespace bench
