#include "diagram/model/Surface.h"
#include "support/Error.h"

#include <algorithm>

namespace diagram {

Link &NodeLinks::Add(Node &destination) {
    return node_->Owner().AddLink(const_cast<Node &>(*node_), destination);
}

int NodeLinks::Count() const { return int(links_->size()); }

Link &NodeLinks::Item(int position) const {
    if (position < 1 || position > Count()) {
        support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("Links"));
    }
    return *(*links_)[std::size_t(position) - 1];
}

Link &NodeLinks::Item(const QString &key) const {
    const auto at = std::ranges::find_if(*links_, [&](const Link *link) { return link->Key() == key; });
    if (at == links_->end()) {
        support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Links"));
    }
    return **at;
}

void NodeLinks::Remove(const QString &key) { node_->Owner().Remove(Item(key)); }

std::vector<Link *>::const_iterator NodeLinks::begin() const { return links_->begin(); }
std::vector<Link *>::const_iterator NodeLinks::end() const { return links_->end(); }

} // namespace diagram
