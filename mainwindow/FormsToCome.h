// What forms are handed that the program has not yet: each moves to its form once it is there.
#pragma once

#include <QString>

namespace diagram {
class Surface;
}

namespace mainwindow {

struct PageSetupArgument {
    static constexpr char kForm[] = "frmPageSetup";
};

struct PrintArgument {
    static constexpr char kForm[] = "frmPrint";
    diagram::Surface &oFlow;
};

struct PrintPreviewArgument {
    static constexpr char kForm[] = "frmPrintPreview";
    diagram::Surface &oFlow;
};

} // namespace mainwindow
