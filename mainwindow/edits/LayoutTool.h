// The settings of an automatic layout, for all windows of the process.
#pragma once

#include "diagram/layout/Layout.h"
#include "document/LevelLanes.h"

namespace mainwindow {

struct LayoutTool {
    diagram::LayoutOptions options;
    diagram::LayoutScope scope = diagram::LayoutScope::All;
    document::Together together = document::Together::Nothing; // for the hierarchical one alone
};

} // namespace mainwindow
