// What a call raises, for expectations.
#pragma once

#include "support/Error.h"

namespace diagram::testing {

// The number of the error that `body` raises; 0 for none.
template <typename Body>
long NumberOf(Body body) {
    try {
        body();
    } catch (const support::Error &error) {
        return error.Number();
    }
    return 0;
}

} // namespace diagram::testing
