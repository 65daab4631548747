#include "widgets/TickStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace widgets {

namespace {

constexpr double kInk = 0.55; // of the frame, the rest is the box's own colour
constexpr qreal kHalf = 0.5;  // of a pixel

// The name under which the application's style is made; behind a TickStyle that of the style it stands for.
QString StyleName() {
    const QStyle *style = QApplication::style();
    if (const auto *proxy = qobject_cast<const QProxyStyle *>(style)) style = proxy->baseStyle();
    return style->name();
}

} // namespace

QColor FrameOfTick(const QPalette &palette) {
    const QColor box = palette.color(QPalette::Base), ink = palette.color(QPalette::Text);
    const auto mix = [](int of, int with) { return int(of + (with - of) * kInk); };
    return {mix(box.red(), ink.red()), mix(box.green(), ink.green()), mix(box.blue(), ink.blue())};
}

TickStyle::TickStyle()
    : QProxyStyle(StyleName()),
      mends_(baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0) {}

void TickStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool focused = option->state.testFlag(State_HasFocus) &&
                         option->state.testFlag(State_KeyboardFocusChange); // has a frame of its own
    if (element != PE_IndicatorCheckBox || !mends_ || focused) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(FrameOfTick(option->palette));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(option->rect).adjusted(kHalf, kHalf, -kHalf, -kHalf));
    painter->restore();
}

int TickStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                         QStyleHintReturn *result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

} // namespace widgets
