#include "mainwindow/BusyRetry.h"

#include "support/Error.h"

namespace mainwindow {

namespace {

// False for a surface that is busy.
bool Ran(const std::function<void()> &statement) {
    try {
        statement();
    } catch (const support::Error &error) {
        if (error.Number() != kErrBusy) throw;
        return false;
    }
    return true;
}

} // namespace

bool RunWhileBusy(std::span<const std::function<void()>> statements) {
    int failures = 0;
    for (const std::function<void()> &statement : statements)
        while (!Ran(statement))
            if (++failures == kBusyTries) return false;
    return true;
}

} // namespace mainwindow
