// An export of a report that the user is asked the options of.
#pragma once

#include "document/MapWindow.h"

namespace diagram {
class Surface;
}

namespace output {

class clsExport {
public:
    static constexpr char kForm[] = "frmExport";

    document::MapWindow &Frm;
    diagram::Surface &AF; // the current slice's
    QString Filename;

    // Shows the form, modally, which does the export. True when it was done.
    bool ShowDialog() { return document::Show(Frm, *this); }
};

} // namespace output
