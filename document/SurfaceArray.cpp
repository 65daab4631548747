#include "document/SurfaceArray.h"

#include "diagram/edit/History.h"
#include "support/Error.h"

#include <algorithm>

namespace document {

namespace {

[[noreturn]] void RaiseNoElement(int index) {
    throw support::Error(340, QStringLiteral("AddFlow1"),
                         QStringLiteral("Control array element '%1' doesn't exist").arg(index));
}

std::unique_ptr<diagram::Surface> MakeSurface(int index) {
    auto surface = std::make_unique<diagram::Surface>();
    surface->SetIndex(index);
    diagram::AttachHistory(*surface);
    return surface;
}

} // namespace

SurfaceArray::SurfaceArray() { slots_.push_back(MakeSurface(0)); }

diagram::Surface &SurfaceArray::operator[](int index) const {
    if (!Exists(index)) RaiseNoElement(index);
    return *slots_[static_cast<std::size_t>(index)];
}

bool SurfaceArray::Exists(int index) const {
    return index >= 0 && index < static_cast<int>(slots_.size()) && slots_[static_cast<std::size_t>(index)];
}

int SurfaceArray::Count() const {
    return static_cast<int>(
        std::count_if(slots_.begin(), slots_.end(), [](const auto &slot) { return slot != nullptr; }));
}

int SurfaceArray::UBound() const { return static_cast<int>(slots_.size()) - 1; }

diagram::Surface &SurfaceArray::Load(int index) {
    if (index < 0 || index > kLargestIndex) RaiseNoElement(index);
    if (Exists(index)) support::Raise(support::kErrAlreadyLoaded, QStringLiteral("AddFlow1"));
    auto surface = MakeSurface(index);
    const auto slot = static_cast<std::size_t>(index);
    if (slot >= slots_.size()) slots_.resize(slot + 1);
    slots_[slot] = std::move(surface);
    if (loaded_) loaded_(*slots_[slot]);
    return *slots_[slot];
}

void SurfaceArray::Unload(int index) {
    if (!Exists(index)) RaiseNoElement(index);
    if (index == 0) support::Raise(support::kErrLoadedAtDesignTime, QStringLiteral("AddFlow1"));
    if (unloading_) unloading_(*slots_[static_cast<std::size_t>(index)]);
    slots_[static_cast<std::size_t>(index)].reset();
    while (!slots_.back()) slots_.pop_back();
}

std::vector<int> SurfaceArray::Indices() const {
    std::vector<int> indices;
    for (int i = 0; i <= UBound(); ++i)
        if (Exists(i)) indices.push_back(i);
    return indices;
}

void SurfaceArray::SetWatchers(std::function<void(diagram::Surface &)> loaded,
                               std::function<void(diagram::Surface &)> unloading) {
    loaded_ = std::move(loaded);
    unloading_ = std::move(unloading);
    if (loaded_)
        for (const int index : Indices()) loaded_((*this)[index]);
}

} // namespace document
