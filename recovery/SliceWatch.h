// Notes which items of a surface have been written to, and gathers their values.
#pragma once

#include "diagram/model/Surface.h"
#include "recovery/Parts.h"

namespace recovery {

// A text that is being typed in place.
struct TypedText {
    int index = 0; // of the surface
    diagram::ItemId item = diagram::kNoItem;
    QString text; // with carriage return and line feed at line ends
    friend bool operator==(const TypedText &, const TypedText &) = default;
};

class SliceWatch : public diagram::SurfaceObserver {
public:
    // `written` is called at each write to what a map keeps, while the write is going on.
    SliceWatch(diagram::Surface &surface, SliceId id, std::function<void()> written);
    ~SliceWatch() override;
    SliceWatch(const SliceWatch &) = delete;
    SliceWatch &operator=(const SliceWatch &) = delete;

    diagram::Surface &Surface() const { return surface_; }
    SliceId Id() const { return id_; }

    // All of the slice counts as written to.
    void NoteAll();
    void Note(diagram::ItemId id);
    // How many items were written to since they were last set out to be gathered.
    std::size_t Noted() const { return noted_.size() + (whole_ ? kAll : 0); }
    // Sets out what is noted, to be gathered.
    void SetOut();
    // Gathers one item of those set out, as it is now; false when none is left.
    bool GatherOne(SlicePart &part, const std::optional<TypedText> &typed);
    // What isn't an item.
    void GatherSurface(SlicePart &part);

    void ItemAdded(diagram::Item &item) override { Write(item.Id()); }
    void ItemChanged(diagram::Item &item, diagram::Change what) override;
    void ItemRemoved(diagram::Item &item) override { Write(item.Id()); }
    void SurfaceChanged(diagram::Change what) override;
    void Cleared() override;

private:
    static constexpr std::size_t kAll = 1 << 30;
    void Write(diagram::ItemId id);

    diagram::Surface &surface_;
    SliceId id_;
    std::function<void()> written_;
    std::vector<bool> isNoted_; // by identity, which are dense
    std::vector<diagram::ItemId> noted_, out_;
    bool whole_ = true, surfaceNoted_ = true; // to be gathered whole; what isn't an item
    bool wholeOut_ = false, surfaceOut_ = false;
};

} // namespace recovery
