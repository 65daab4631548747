// Work that may take long asks now and then whether to go on. For work whose length isn't known beforehand;
// see Progress.h for work that tells how far it is.
#pragma once

#include <cstddef>
#include <functional>

namespace diagram {

// Asked every few milliseconds by work that may take long; false gives the work up.
using GoOn = std::function<bool()>;

// Asks whenever enough has been done since the last time.
class Patience {
public:
    struct GivenUp {};

    explicit Patience(const GoOn &goOn) : goOn_(goOn) {}

    // `steps` of some ten nanoseconds each are about to be done. Throws GivenUp.
    void Spend(std::size_t steps) {
        constexpr std::size_t kStride = 50000;
        spent_ += steps;
        if (spent_ < kStride) return;
        spent_ = 0;
        if (!goOn_()) throw GivenUp();
    }

private:
    const GoOn &goOn_;
    std::size_t spent_ = 0;
};

} // namespace diagram
