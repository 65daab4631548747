#include "diagram/render/PictureCache.h"

namespace diagram {

namespace {

constexpr qsizetype kMostBytes = qsizetype(2) << 20;
constexpr int kMostEntries = 256;

} // namespace

const QImage &PictureCache::Find(const Picture &picture, const QSize &pixels) {
    for (auto at = entries_.begin(); at != entries_.end(); ++at)
        if (at->picture.Identity() == picture.Identity() && at->size == pixels) {
            entries_.splice(entries_.begin(), entries_, at);
            return at->image;
        }
    QImage image = picture.ImageFor(pixels);
    if (!image.isNull() && image.size() != pixels)
        image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(1);
    image = std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    entries_.push_front({picture, pixels, image});
    bytes_ += image.sizeInBytes();
    while ((bytes_ > kMostBytes || entries_.size() > kMostEntries) && entries_.size() > 1) {
        bytes_ -= entries_.back().image.sizeInBytes();
        entries_.pop_back();
    }
    return entries_.front().image;
}

void PictureCache::Clear() {
    entries_.clear();
    bytes_ = 0;
}

} // namespace diagram
