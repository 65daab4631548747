// Pictures at the size at which they are shown.
#pragma once

#include "diagram/model/Picture.h"

#include <list>
#include <QImage>

namespace diagram {

class PictureCache {
public:
    // The picture scaled to whole device pixels; null when it can't be decoded.
    const QImage &Find(const Picture &picture, const QSize &pixels);
    void Clear();

private:
    struct Entry {
        Picture picture; // keeps its identity from being used again
        QSize size;
        QImage image;
    };
    std::list<Entry> entries_; // used last comes first
    qsizetype bytes_ = 0;
};

} // namespace diagram
