// The size of a text as the renderer lays it out.
#pragma once

#include "diagram/model/Surface.h"
#include "diagram/render/TextCache.h"

#include <cmath>

namespace diagram {

class LayoutMeasure : public TextMeasure {
public:
    explicit LayoutMeasure(TextCache &texts) : texts_(texts) {}
    QSizeF Measure(const QString &text, const Font &font, double width) override {
        const TextBlock &block = texts_.Find(text, font, width, 0);
        return {std::ceil(block.width), std::ceil(block.height)};
    }

private:
    TextCache &texts_;
};

} // namespace diagram
