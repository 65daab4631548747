// A folder for the files of a run, and sample maps in it.
#pragma once

#include <QString>

namespace bench {

// Removed at the end of the run. The program's temporary files go there too.
QString ScratchFolder();
// The path of a map of the sample diagram with so many nodes; written at the first call.
QString SampleMap(int nodes);
// Removes the safety copies that a save leaves in the temporary folder.
void RemoveSafetyCopies();

} // namespace bench
