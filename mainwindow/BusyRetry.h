// Statements that a busy surface refuses for a while.
#pragma once

#include <functional>
#include <span>

namespace mainwindow {

constexpr long kErrBusy = 10000;
constexpr int kBusyTries = 10;

// Runs the statements in their order. One that raises kErrBusy is run again at once; at the tenth such error
// of them all the rest is left out, and the result is false. Any other error is raised.
bool RunWhileBusy(std::span<const std::function<void()>> statements);

} // namespace mainwindow
