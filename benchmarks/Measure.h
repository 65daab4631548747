// How figures are taken.
#pragma once

#include "benchmarks/Figure.h"

#include <functional>

namespace bench {

// Milliseconds that a routine takes.
double TimeOf(const std::function<void()> &what);

// The least of several runs: what the machine's other work adds is not ours.
double BestOf(int runs, const std::function<double()> &run);
// The same, timing `what` alone, with `before` ahead of it each time.
double BestOf(int runs, const std::function<void()> &before, const std::function<void()> &what);

// Raises a std::runtime_error that names `expected` unless it holds. What doesn't do that for which it is
// timed has no figure.
void Require(bool holds, const char *expected);

// In the place of a figure in milliseconds that could not be taken.
Figure FailedFigure(const QString &name, double bound, const std::exception &failure);

} // namespace bench
