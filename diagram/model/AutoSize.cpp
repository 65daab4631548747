// How a node takes the size of its picture or its text.
#include "diagram/model/Node.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr int kToPicture = 2, kToText = 3;
constexpr double kTrial = 1000; // side of the box in which the share of a shape's text area is looked up

// The smallest box, about, whose text area holds `content`. Where the area is no fixed share of the box, what
// is still missing is added in a second look.
QSizeF BoxAround(const NodeData &data, const QSizeF &content) {
    const QRectF trial = TextArea(data.shape, data.shapeOrientation, QRectF(0, 0, kTrial, kTrial));
    if (trial.isEmpty()) return content;
    QSizeF box(content.width() * kTrial / trial.width(), content.height() * kTrial / trial.height());
    const QRectF area = TextArea(data.shape, data.shapeOrientation, QRectF(QPointF(), box));
    box.rwidth() += std::max(0.0, content.width() - area.width());
    box.rheight() += std::max(0.0, content.height() - area.height());
    return box;
}

QSizeF SizeForText(const NodeData &data, const QString &shown, TextMeasure &measure) {
    const QSizeF text = measure.Measure(shown, data.font, 0);
    const double border = 2 * data.drawWidth * kTwipsPerPixel;
    const QSizeF margins(2 * kTwipsPerPixel * std::max(0, data.xTextMargin) + border,
                         2 * kTwipsPerPixel * std::max(0, data.yTextMargin) + border);
    return BoxAround(data, text + margins);
}

} // namespace

QRectF Node::ShownBounds() const {
    TextMeasure *measure = Owner().Measure();
    const bool grows =
        Owner().Screen().ShowsBothTexts() && !data_.event.isEmpty() && data_.autoSize == kToText;
    if (!grows || !measure) return Bounds();
    return {Bounds().topLeft(), SizeForText(data_, ShownText(), *measure).expandedTo(Bounds().size())};
}

void Node::FitToContent() {
    Surface &surface = Owner();
    if (surface.Loading()) return;
    QSizeF size;
    if (data_.autoSize == kToPicture) size = data_.picture.SizeInTwips();
    if (data_.autoSize == kToText && surface.Measure() && !data_.text.isEmpty()) {
        size = SizeForText(data_, data_.text, *surface.Measure());
    }
    if (size.isEmpty() || !IsSize(size.width()) || !IsSize(size.height())) return;
    SetBounds(data_.left, data_.top, float(size.width()), float(size.height()));
}

} // namespace diagram
