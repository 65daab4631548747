#include "diagram/render/TextCache.h"

#include "diagram/render/CutText.h"

namespace diagram {

namespace {

constexpr std::size_t kMostBytes = 2u << 20;

std::size_t BytesOf(const TextBlock &block) {
    std::size_t bytes = 400 + 2 * std::size_t(block.text.size());
    for (const TextLine &line : block.lines) bytes += 300 + 24 * std::size_t(line.length);
    return bytes;
}

} // namespace

std::size_t TextCache::KeyHash::operator()(const Key &key) const {
    return qHashMulti(key.font.Hash(), key.text, key.width, key.widest, key.room, key.scale, key.lines);
}

const TextBlock &TextCache::Find(const QString &text, const Font &font, const WrapWidth &wrap, double scale,
                                 int lines) {
    Key key{text, font, int(wrap.width), int(wrap.widest), int(RoomFor(text, wrap)), float(scale), lines};
    const auto found = index_.find(key);
    if (found != index_.end()) {
        if (found->second != entries_.begin()) entries_.splice(entries_.begin(), entries_, found->second);
        return found->second->block;
    }
    TextBlock block = lines > 0 ? CutAfter(faces_, Find(text, font, wrap, scale), lines, wrap, scale)
                                : LayOut(faces_, text, font, wrap, scale);
    entries_.push_front({key, std::move(block), 0});
    Entry &entry = entries_.front();
    entry.bytes = BytesOf(entry.block);
    bytes_ += entry.bytes;
    index_.emplace(std::move(key), entries_.begin());
    Trim();
    return entry.block;
}

// The entry in use stays, however large.
void TextCache::Trim() {
    while (bytes_ > kMostBytes && entries_.size() > 1) {
        bytes_ -= entries_.back().bytes;
        index_.erase(entries_.back().key);
        entries_.pop_back();
    }
}

void TextCache::Clear() {
    index_.clear();
    entries_.clear();
    bytes_ = 0;
}

} // namespace diagram
