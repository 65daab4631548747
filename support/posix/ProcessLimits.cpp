#include "support/ProcessLimits.h"

#include <algorithm>
#include <sys/resource.h>

namespace support {

namespace {

void Limit(int resource, rlim_t value) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max == RLIM_INFINITY ? value : std::min(value, limit.rlim_max);
    setrlimit(resource, &limit);
}

} // namespace

void LimitProcess([[maybe_unused]] qint64 memoryBytes, int seconds) {
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_CPU, static_cast<rlim_t>(seconds));
#ifndef __SANITIZE_ADDRESS__ // the sanitizer reserves more than any limit allows
    Limit(RLIMIT_DATA, static_cast<rlim_t>(memoryBytes));
#endif
}

} // namespace support
