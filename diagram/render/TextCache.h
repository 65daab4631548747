// Texts that were laid out lately, for painting them again.
#pragma once

#include "diagram/render/TextBlock.h"

#include <list>
#include <unordered_map>

namespace diagram {

// The blocks that were used last, up to a bound in bytes.
class TextCache {
public:
    explicit TextCache(Faces &faces) : faces_(faces) {}
    // With `lines`, what CutAfter gives of the block.
    const TextBlock &Find(const QString &text, const Font &font, const WrapWidth &wrap, double scale,
                          int lines = 0);
    void Clear();
    std::size_t Bytes() const { return bytes_; }

private:
    struct Key {
        QString text;
        Font font;
        int width, widest, room;
        float scale;
        int lines;
        friend bool operator==(const Key &, const Key &) = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key &key) const;
    };
    struct Entry {
        Key key;
        TextBlock block;
        std::size_t bytes;
    };
    void Trim();

    Faces &faces_;
    std::list<Entry> entries_; // used last comes first
    std::unordered_map<Key, std::list<Entry>::iterator, KeyHash> index_;
    std::size_t bytes_ = 0;
};

} // namespace diagram
