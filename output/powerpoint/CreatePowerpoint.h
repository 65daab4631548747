// Slices as a presentation.
#pragma once

#include "output/powerpoint/Slide.h"

#include <functional>

namespace powerpoint {

struct PowerpointOptions {
    int layout = kLayoutBlank;
    bool currentOnly = true; // the slice of the selected tab alone
    bool asShapes = false;   // each node and link a shape of its own, where the file's form has such
};

// Asked after each slide; false gives up.
using GoOn = std::function<bool(int done, int all)>;

// Error 5 for a name that ends otherwise than .ppt and .pptx.
void CheckEnding(const QString &Filename);

// Adds the slice behind the other slides.
void AddFlowSlide(const output::SliceOutput &slice, PresentationFile &presentation,
                  const PowerpointOptions &options, const QString &title);

// The slides in the order of the slices, in the form that the name's ending tells: .ppt the binary one, any
// other Office Open XML. A file that is there is replaced as a whole. False when it was given up; nothing is
// written then. Errors as AtomicFile's.
bool WritePowerpoint(const QString &Filename, const output::MapOutput &map, const PowerpointOptions &options,
                     const GoOn &goOn = {});

// The same for the window's map, with errors shown. True when the file was written.
bool CreatePowerpoint(const QString &Filename, document::MapWindow &frmForm, const PowerpointOptions &options,
                      const GoOn &goOn = {});

} // namespace powerpoint
