// A slice saved as a template.
#pragma once

#include "templates/DrawnIcon.h"

#include <functional>
#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace templates {

// What the form is handed. Everything outlives it.
struct SaveAsTemplateArgument {
    static constexpr char kForm[] = "frmSaveAsTemplate";
    document::MapWindow &window;
    diagram::Surface &Flow;
    // Called after a template was saved: lets every window fill its bar anew.
    std::function<void()> LoadRadBar = {};
};

// The path that is proposed for a slice of that name: in the folder for new templates, with the name made fit
// for a file and the ending of templates.
QString ProposedPath(const QString &tabText);
// The first icon file in the folder of templates beside the program, else in the user's own; empty for none.
QString FirstIcon();

// Saves the slice with its background and the names of its levels and groups. The hidden node "DIAGRAM" that
// carries them stays on the slice.
void SaveAsTemplate(document::MapWindow &window, diagram::Surface &Flow, const QString &iconFile,
                    const QString &outputFile);

} // namespace templates
