// What forms are handed that the program has not yet: each moves to its form once it is there.
#pragma once

#include <QString>

namespace diagram {
class Surface;
}

namespace mainwindow {

struct PowerPointArgument {
    static constexpr char kForm[] = "frmPowerPoint";
    diagram::Surface &oFlow;
    QString file;
};

struct SaveAsTemplateArgument {
    static constexpr char kForm[] = "frmSaveAsTemplate";
    diagram::Surface &oFlow;
};

} // namespace mainwindow
