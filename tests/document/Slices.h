// Further slices of a map.
#pragma once

#include "document/MapWindow.h"
#include "document/SurfaceArray.h"

namespace document::testing {

// One behind the others, with its tab; the one on top stays so.
inline diagram::Surface &AddSlice(MapWindow &window, const QString &caption = QString()) {
    auto &tabs = window.TabStrip();
    const int former = tabs.TheTab(), added = tabs.TabCount();
    diagram::Surface &surface = window.AddFlow1().Load(window.AddFlow1().UBound() + 1);
    tabs.SetTabCount(added + 1);
    if (!caption.isEmpty()) {
        tabs.SetTheTab(added);
        tabs.SetCaption(caption);
        tabs.SetTheTab(former);
    }
    return surface;
}

} // namespace document::testing
