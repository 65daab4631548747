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

    // Notes the whole slice, or one item, as written to.
    void NoteAll();
    void Note(diagram::ItemId id);
    // How many items are noted; at least kAll for the whole slice.
    std::size_t Noted() const { return noted_.size() + (whole_ ? kAll : 0); }
    // What is noted now is to be gathered by the next two; writes from now on are noted anew.
    void BeginGathering();
    // Whether the part is the whole slice, and the surface's own values if they were written to.
    void GatherSurface(SlicePart &part);
    // One item, with the values that it has now; false when none is left.
    bool GatherOne(SlicePart &part, const std::optional<TypedText> &typed);

    void ItemAdded(diagram::Item &item) override { Write(item.Id()); }
    void ItemChanged(diagram::Item &item, diagram::Change what) override;
    void ItemRemoved(diagram::Item &item) override { Write(item.Id()); }
    void SurfaceChanged(diagram::Change what) override;
    void Cleared() override;

private:
    static constexpr std::size_t kAll = 1 << 30; // more than any slice has
    void Write(diagram::ItemId id);

    diagram::Surface &surface_;
    SliceId id_;
    std::function<void()> written_;
    // Written to since gathering began last: single items, the whole slice, the surface's own values.
    std::vector<diagram::ItemId> noted_;
    std::vector<bool> isNoted_; // by identity; identities are dense
    bool whole_ = true, surfaceNoted_ = true;
    // The same of what is being gathered now.
    std::vector<diagram::ItemId> toGather_;
    bool gathersWhole_ = false, gathersSurface_ = false;
};

} // namespace recovery
