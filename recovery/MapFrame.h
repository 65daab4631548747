// Everything of a map except the content of its slices.
#pragma once

#include "document/cAttachment.h"
#include "document/cGroup.h"
#include "document/cHyperlink.h"
#include "document/cLevel.h"
#include "document/FilterViews.h"
#include "document/OwnFiles.h"

#include <optional>
#include <vector>

namespace document {
class MapWindow;
}

namespace recovery {

// The number of a slice within one journal, never given to another slice.
using SliceId = std::uint32_t;

struct SlicePlace {
    SliceId id = 0;
    int index = 0; // in AddFlow1
    QString caption, tabKey;
    friend bool operator==(const SlicePlace &, const SlicePlace &) = default;
};

struct MapFrame {
    QString path;    // of the map file; empty for a map that was never saved
    QString caption; // of the window
    // How the file was when the window last read or wrote it, and whether what it holds is the window's own;
    // none for a file that the window has never seen.
    std::optional<document::FileStamp> seen;
    bool own = false;
    std::vector<SlicePlace> slices; // in the order of the tabs
    std::vector<document::cGroup> groups;
    std::vector<document::cLevel> levels;
    std::vector<document::cHyperlink> hyperlinks;
    std::vector<document::cAttachment> attachments;
    document::FilterViews views;
    friend bool operator==(const MapFrame &a, const MapFrame &b);
};

// The frame as the window has it now, with these slices.
MapFrame FrameOf(document::MapWindow &window, const QString &caption, std::vector<SlicePlace> slices);

} // namespace recovery
