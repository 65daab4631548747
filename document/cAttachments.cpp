#include "document/cAttachments.h"

#include "support/clsGUID.h"

namespace document {

cAttachment &cAttachments::add(QString &key) {
    if (key.isEmpty()) key = support::GetGUID();
    auto attachment = std::make_unique<cAttachment>();
    attachment->Key = key;
    return items_.Add(key, std::move(attachment));
}

} // namespace document
