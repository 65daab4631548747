// Why a Jet file cannot be read.
#pragma once

#include <stdexcept>

namespace storage::jet {

// The file is of no kind that the reader knows.
struct NotRecognised : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Something is missing or cannot be, so that the file cannot be read whole.
struct Damaged : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace storage::jet
