// What a screen reader is told of a node beside its text and links.
#pragma once

#include <QString>

namespace diagram {
class Item;
}
namespace document {
class clsfrmMain;
}

namespace mainwindow {

// "Level 2, groups Market, Product, Sunday, 14 March 2004", as far as the node has them; of a month "folded,
// 3 nodes"; empty for a link.
QString ItemDescription(const diagram::Item &item, document::clsfrmMain &settings);

} // namespace mainwindow
