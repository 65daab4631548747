// The observers of a surface as one observer.
#pragma once

#include "diagram/model/SurfaceObserver.h"

#include <vector>

namespace diagram {

// Tells each of them in the order in which they were added.
class SurfaceObservers final : public SurfaceObserver {
public:
    void Add(SurfaceObserver &observer) { observers_.push_back(&observer); }
    void Remove(SurfaceObserver &observer) { std::erase(observers_, &observer); }

    void ItemAdded(Item &item) override;
    void ItemChanged(Item &item, Change what) override;
    void ItemRemoved(Item &item) override;
    void SurfaceChanged(Change what) override;
    void Cleared() override;
    void BeforeUndo() override;
    void AfterUndo() override;

private:
    std::vector<SurfaceObserver *> observers_;
};

} // namespace diagram
