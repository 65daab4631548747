// How one of the automatic layouts is set; for all windows of the process.
#pragma once

#include "diagram/layout/Layout.h"

namespace mainwindow {

struct LayoutTool {
    diagram::LayoutOptions options;
    diagram::LayoutScope scope = diagram::LayoutScope::All;
};

} // namespace mainwindow
