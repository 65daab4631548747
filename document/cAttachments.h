// The attachments of all nodes of a map.
#pragma once

#include "document/cAttachment.h"
#include "document/KeyedCollection.h"

namespace document {

class cAttachments : public Pool<cAttachment> {
public:
    // A new attachment under `key`; an empty key is filled with a new GUID first. Error 457 for a key that is
    // taken.
    cAttachment &add(QString &key);
};

} // namespace document
