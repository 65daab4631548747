// What the program does once the user has read about an error.
#pragma once

#include "support/Error.h"

#include <functional>

namespace support {

// `action` runs when that very error has been reported, after its box was closed: the next report of any
// other error drops it. One at a time. An error of the action itself is reported.
void FollowReport(const Error &error, std::function<void()> action);

} // namespace support
