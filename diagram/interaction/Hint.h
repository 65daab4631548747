// What a gesture tells the user in passing; the window finds the words.
#pragma once

namespace diagram {

enum class Hint : unsigned char {
    LinkNeedsNode // a link was dropped where there is no node
};

} // namespace diagram
