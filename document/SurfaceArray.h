// The array AddFlow1: surfaces in slots, counted from 0; slot 0 always exists, others are loaded on demand.
#pragma once

#include "diagram/model/Surface.h"

#include <functional>
#include <memory>
#include <vector>

namespace document {

class SurfaceArray {
public:
    // The highest slot, and so the highest index that a slice of a map can have.
    static constexpr int kLargestIndex = 32767;

    SurfaceArray();

    // The surface in the slot; error 340 "Control array element 'N' doesn't exist".
    diagram::Surface &operator[](int index) const;
    bool Exists(int index) const;
    int Count() const;  // loaded slots
    int UBound() const; // the highest loaded slot
    // Makes a surface in an empty slot, with a history of its own; error 360 "Object already loaded"; error
    // 340 for a slot below 0 or above kLargestIndex.
    diagram::Surface &Load(int index);
    // Error 340; error 362 "Can't unload controls created at design time" for slot 0.
    void Unload(int index);
    std::vector<int> Indices() const; // loaded slots in ascending order

    // Told after a surface was made (slot 0 too, at the time of setting) and before one goes.
    void SetWatchers(std::function<void(diagram::Surface &)> loaded,
                     std::function<void(diagram::Surface &)> unloading);

private:
    std::vector<std::unique_ptr<diagram::Surface>> slots_;
    std::function<void(diagram::Surface &)> loaded_, unloading_;
};

} // namespace document
