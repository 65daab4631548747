// How long work goes on: asked now and then, given up at once.
#pragma once

#include <cstddef>
#include <functional>

namespace diagram {

// Asked every few milliseconds by work that may take long; false gives the work up.
using GoOn = std::function<bool()>;

// Asks when enough has been done since the last time.
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
