// What the program does once the user has read about an error; part of Error.cpp.
#pragma once

#include "support/Error.h"

#include <functional>

namespace support {

// Call it before raising `error`. Once ShowReport (support/Error.h) has shown that error and its box was
// closed, `action` runs; if another error is reported first, it is dropped. There is one action at a time: a
// second call replaces the first. An error of the action itself is reported.
void FollowReport(const Error &error, std::function<void()> action);

} // namespace support
