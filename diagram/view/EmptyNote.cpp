#include "diagram/view/EmptyNote.h"

#include "diagram/model/Surface.h"
#include "support/Colour.h"
#include "support/Contrast.h"
#include "support/MixColours.h"

#include <algorithm>
#include <cmath>
#include <QPainter>
#include <QWidget>
#include <utility>

namespace diagram {

namespace {

constexpr int kMostWidth = 460;        // pixels
constexpr int kMargin = 16;            // pixels
constexpr double kLeastContrast = 4.6; // rounding takes a little of it
constexpr double kFirstShare = 0.5;    // of the ink in the quietest mixture
constexpr int kPlateAlpha = 210;
constexpr double kPlateCorner = 8;
constexpr int kFlags = Qt::AlignCenter | Qt::TextWordWrap;

} // namespace

QColor QuietInk(const QColor &paper) {
    const QColor black(Qt::black), white(Qt::white);
    const QColor &ink = support::Contrast(paper, black) >= support::Contrast(paper, white) ? black : white;
    for (double share = kFirstShare; share < 1; share += 0.05) {
        const QColor quiet = support::Mix(paper, ink, share);
        if (support::Contrast(paper, quiet) >= kLeastContrast) return quiet;
    }
    return ink;
}

bool IsEmptyPage(const Surface &surface) {
    for (const Node &node : surface.Nodes())
        if (node.Selectable() || !node.Hidden()) return false;
    return true;
}

bool EmptyNote::Update(bool drawing) {
    const bool shows = !words_.isEmpty() && !drawing && IsEmptyPage(surface_);
    if (std::exchange(shown_, shows) == shows) return false;
    canvas_.update();
    return true;
}

// On a picture the letters lie on a plate in the colour of the page.
void EmptyNote::Paint(QPainter &painter) const {
    if (!shown_) return;
    QRect place(0, 0, std::min(kMostWidth, canvas_.width() - 2 * kMargin), canvas_.height());
    place.moveCenter(canvas_.rect().center());
    const QColor paper = support::ToQColor(surface_.BackColor());
    painter.setFont(canvas_.font());
    const QRect text = painter.boundingRect(place, kFlags, words_);
    painter.setPen(Qt::NoPen);
    if (!surface_.Picture().IsNull()) {
        QColor plate = paper;
        plate.setAlpha(kPlateAlpha);
        painter.setBrush(plate);
        painter.drawRoundedRect(text.adjusted(-kMargin, -kMargin, kMargin, kMargin), kPlateCorner,
                                kPlateCorner);
    }
    painter.setPen(QuietInk(paper));
    painter.drawText(place, kFlags, words_);
}

} // namespace diagram
