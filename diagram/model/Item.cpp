#include "diagram/model/Item.h"

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"

namespace diagram {

Node *Item::AsNode() { return kind_ == ItemKind::Node ? static_cast<Node *>(this) : nullptr; }
const Node *Item::AsNode() const {
    return kind_ == ItemKind::Node ? static_cast<const Node *>(this) : nullptr;
}
Link *Item::AsLink() { return kind_ == ItemKind::Link ? static_cast<Link *>(this) : nullptr; }
const Link *Item::AsLink() const {
    return kind_ == ItemKind::Link ? static_cast<const Link *>(this) : nullptr;
}

StackKey Item::Stack() const {
    return kind_ == ItemKind::Node ? AsNode()->Data().stack : AsLink()->Data().stack;
}

} // namespace diagram
