#include "document/cHyperlinks.h"

#include "support/clsGUID.h"

namespace document {

cHyperlink &cHyperlinks::add(QString &key) {
    if (key.isEmpty()) key = support::GetGUID();
    auto hyperlink = std::make_unique<cHyperlink>();
    hyperlink->Key = key;
    return items_.Add(key, std::move(hyperlink));
}

} // namespace document
