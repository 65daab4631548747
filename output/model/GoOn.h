// The question whether to go on with work that takes long.
#pragma once

#include <functional>

namespace output {

// False gives up. Whoever is asked may let events run.
using GoOn = std::function<bool()>;

// For work of many small pieces: asks only at every 256th of them.
class NowAndThen {
public:
    // Without anybody to ask the work goes on.
    explicit NowAndThen(const GoOn &goOn) : goOn_(goOn) {}
    bool Ask() {
        constexpr unsigned kEvery = 256;
        return ++pieces_ % kEvery != 0 || !goOn_ || goOn_();
    }

private:
    const GoOn &goOn_;
    unsigned pieces_ = 0;
};

} // namespace output
