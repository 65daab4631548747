// How long the process has been running.
#pragma once

namespace app {

// Seconds since the process started, loading its libraries included, where the system tells it (Linux, to
// about 10 ms); elsewhere since the first call.
double ProcessAge();

} // namespace app
