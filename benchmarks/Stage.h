// What the figures share: a scratch folder that goes away, and sample maps in it.
#pragma once

#include <QString>

namespace bench {

// A folder for this run; removed at its end. The program's temporary files go there too.
QString ScratchFolder();
// A map of so many nodes, made at the first question.
QString SampleMap(int nodes);
// Takes away the copies that compacting leaves in the temporary folder.
void RemoveSafetyCopies();

} // namespace bench
