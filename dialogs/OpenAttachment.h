// Opening and copying the file of an attachment.
#pragma once

#include "support/Desktop.h"

namespace document {
class MapWindow;
}

namespace dialogs {

// Opens the file, which the map may name by a path of elsewhere (document/WhereItIs.h), with its program.
// What can run (support/RunnableFile.h) is asked about first, as a map may come from anybody. False, after
// telling the user, when it isn't there or nothing opens it, and when the user won't.
bool OpenAttachment(document::MapWindow &window, const QString &filename);

// Asks where, and copies the file there. False when the user gave up; errors are those of
// support/AtomicFile.h.
bool SaveAttachmentAs(document::MapWindow &window, const QString &filename, support::Owner owner);

// Asks for a file, as a form for attachments does: any file that is there. Empty when the user gave up.
QString AskForAttachment(support::Desktop &desktop, support::Owner owner);

} // namespace dialogs
