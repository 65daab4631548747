#include "diagram/render/FormCache.h"

namespace diagram {

namespace {

constexpr qsizetype kMostBytes = 16 << 20;

} // namespace

std::size_t qHash(const FormLook &look, std::size_t seed) {
    return qHashMulti(seed, look.shape, look.orientation, look.width, look.height, look.line, look.style,
                      look.lineColour, look.filled, look.fill);
}

const QImage *FormCache::Find(const FormLook &look) const {
    const auto found = pictures_.constFind(look);
    return found == pictures_.constEnd() ? nullptr : &*found;
}

const QImage &FormCache::Keep(const FormLook &look, const QImage &picture) {
    if (bytes_ + picture.sizeInBytes() > kMostBytes) Clear();
    bytes_ += picture.sizeInBytes();
    return *pictures_.insert(look, picture);
}

void FormCache::Clear() {
    pictures_.clear();
    bytes_ = 0;
}

} // namespace diagram
