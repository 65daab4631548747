// Opening and copying the file of an attachment.
#pragma once

#include "support/Desktop.h"

namespace document {
class MapWindow;
}

namespace dialogs {

// Opens the file with its program; it is looked for below the map's folder too (document/WhereItIs.h). Asks
// first about a file that can run (support/RunnableFile.h), as a map may come from anybody. False when the
// user refuses, and, after telling so, when the file isn't there or nothing opens it.
bool OpenAttachment(document::MapWindow &window, const QString &filename);

// Asks where, and copies the file there. False when the user gave up; errors are those of
// support/AtomicFile.h.
bool SaveAttachmentAs(document::MapWindow &window, const QString &filename, support::Owner owner);

// Asks for a file, as a form for attachments does: any file that is there. Empty when the user gave up.
QString AskForAttachment(support::Desktop &desktop, support::Owner owner);

} // namespace dialogs
