// Where errors of a surface's view end.
#pragma once

namespace diagram {

class Interaction;
class Surface;

// Both must live longer.
class SurfaceGuard {
public:
    SurfaceGuard(Surface &surface, Interaction &interaction) : surface_(surface), interaction_(interaction) {}

    // Runs `body`; an error in it ends the gesture, goes to the surface's event Error, and is shown unless
    // the handler says otherwise. False after an error.
    template <typename Body>
    bool Run(const char *routine, Body &&body) {
        try {
            body();
            return true;
        } catch (...) {
            Failed(routine);
            return false;
        }
    }

private:
    void Failed(const char *routine);

    Surface &surface_;
    Interaction &interaction_;
};

} // namespace diagram
