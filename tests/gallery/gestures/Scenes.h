// The gestures that are filmed.
#pragma once

#include <span>

namespace gallery {

class Film;

struct Scene {
    const char *name;
    void (*play)(Film &);
    bool hidpi; // on screens of higher resolution too
};

std::span<const Scene> NodeScenes();
std::span<const Scene> LinkScenes();
std::span<const Scene> ViewScenes();
std::span<const Scene> KeyScenes();
std::span<const Scene> DateScenes();

} // namespace gallery
