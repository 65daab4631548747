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

// Whether a presentation of that name is written in the binary form, which has pictures but no shapes: it
// ends in .ppt. Any other is Office Open XML.
bool IsBinary(const QString &Filename);

// Error 5 for a name that ends otherwise than .ppt and .pptx.
void CheckEnding(const QString &Filename);

// Adds the slice behind the other slides.
void AddFlowSlide(const output::SliceOutput &slice, PresentationFile &presentation,
                  const PowerpointOptions &options, const QString &title);

// Writes the slides in the order of the slices. A file that is there is replaced as a whole. False when it
// was given up; nothing is written then. Errors are those of support::AtomicFile.
bool WritePowerpoint(const QString &Filename, const output::MapOutput &map, const PowerpointOptions &options,
                     const GoOn &goOn = {});

// The same for the window's map, with errors shown. True when the file was written.
bool CreatePowerpoint(const QString &Filename, document::MapWindow &frmForm, const PowerpointOptions &options,
                      const GoOn &goOn = {});

} // namespace powerpoint
