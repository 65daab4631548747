// Age and memory of the process, for the benchmarks.
#pragma once

namespace app {

// Seconds since the process started, loading its libraries included, where the system tells it (Linux, to
// about 10 ms); elsewhere since the first call.
double ProcessAge();

// Resident memory in KiB, where the system tells it (Linux); 0 elsewhere.
long ResidentKiB();

} // namespace app
