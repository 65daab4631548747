#include "timeline/OwnExtent.h"

#include "diagram/model/Node.h"
#include "document/Tags.h"

namespace timeline {

namespace {

using document::tags::kOwnExtent;

// As stored, before the number: "Width 1500".
const QString kWidth = QStringLiteral("Width"), kHeight = QStringLiteral("Height");

} // namespace

OwnExtent::OwnExtent(const diagram::Node &node, bool rightwards) : along_(rightwards ? kWidth : kHeight) {
    const QString stored = document::GetTag(node, kOwnExtent);
    which_ = stored.section(u' ', 0, 0);
    extent_ = stored.section(u' ', 1).toDouble();
    if (extent_ <= 0 || (which_ != kWidth && which_ != kHeight)) which_.clear();
}

QRectF OwnExtent::Given(QRectF box, bool isBar) const {
    if (which_.isEmpty() || (isBar && which_ == along_)) return box;
    which_ == kWidth ? box.setWidth(extent_) : box.setHeight(extent_);
    return box;
}

QString OwnExtent::Stored(const QRectF &box, bool isBar) const {
    if (!isBar) return {};
    const double extent = which_ == along_ ? extent_ : along_ == kWidth ? box.width() : box.height();
    return along_ + u' ' + QString::number(extent);
}

bool StoresItsWidth(const diagram::Node &node) {
    return document::GetTag(node, kOwnExtent).startsWith(kWidth);
}

} // namespace timeline
