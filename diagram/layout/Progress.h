// How far a layout is.
#pragma once

#include <algorithm>
#include <functional>

namespace diagram {

// Told now and then how much of the work is done, from 0 to 1 and never less than before; false gives it up.
using Advance = std::function<bool(double done)>;

// Cuts the work into stretches that count for themselves.
class Progress {
public:
    struct GivenUp {};

    explicit Progress(const Advance &advance) : advance_(advance) {}

    // What At tells from now on lies between these shares of the whole.
    void SetStretch(double from, double to) { from_ = from, to_ = to; }
    double From() const { return from_; }
    double To() const { return to_; }
    // A share of the stretch, 0 to 1, is done. Throws GivenUp.
    void At(double share) {
        done_ = std::max(done_, std::min(1.0, from_ + (to_ - from_) * share));
        if (advance_ && !advance_(done_)) throw GivenUp();
    }

private:
    const Advance &advance_;
    double from_ = 0, to_ = 1, done_ = 0;
};

} // namespace diagram
