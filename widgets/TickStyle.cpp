#include "widgets/TickStyle.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>

namespace widgets {

namespace {

constexpr double kInk = 0.55;     // of the frame, the rest is the box's own colour
constexpr qreal kHalf = 0.5;      // of a pixel
constexpr double kReadable = 4.5; // contrast of texts

int MixOf(int of, int with, double share) { return int(of + (with - of) * share + 0.5); }

QColor Mix(const QColor &of, const QColor &with, double share) {
    return {MixOf(of.red(), with.red(), share), MixOf(of.green(), with.green(), share),
            MixOf(of.blue(), with.blue(), share)};
}

double Linear(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor &colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

// The name under which the application's style is made; behind a TickStyle that of the style it stands for.
QString StyleName() {
    const QStyle *style = QApplication::style();
    if (const auto *proxy = qobject_cast<const QProxyStyle *>(style)) style = proxy->baseStyle();
    return style->name();
}

} // namespace

QColor FrameOfTick(const QPalette &palette) {
    return Mix(palette.color(QPalette::Base), palette.color(QPalette::Text), kInk);
}

double Contrast(const QColor &a, const QColor &b) {
    const double one = Luminance(a), other = Luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor Readable(const QColor &text, const QColor &ground, const QColor &ink) {
    constexpr double kStep = 0.05;
    if (text.alpha() == 255 && Contrast(text, ground) >= kReadable) return text;
    const QColor plain = Mix(ground, text, text.alphaF());
    for (double share = 0; share < 1; share += kStep)
        if (const QColor mixed = Mix(plain, ink, share); Contrast(mixed, ground) >= kReadable) return mixed;
    return ink;
}

void MakePlaceholderReadable(QLineEdit &field) {
    QPalette palette = field.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = palette.color(group, QPalette::PlaceholderText);
        palette.setColor(
            group, QPalette::PlaceholderText,
            Readable(text, palette.color(group, QPalette::Base), palette.color(group, QPalette::Text)));
    }
    if (palette != field.palette()) field.setPalette(palette);
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

void TickStyle::polish(QWidget *widget) {
    QProxyStyle::polish(widget);
    auto *field = qobject_cast<QLineEdit *>(widget);
    if (!field) return;
    field->installEventFilter(this);
    MakePlaceholderReadable(*field);
}

void TickStyle::unpolish(QWidget *widget) {
    if (qobject_cast<QLineEdit *>(widget)) widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

bool TickStyle::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::PaletteChange) MakePlaceholderReadable(static_cast<QLineEdit &>(*watched));
    return QProxyStyle::eventFilter(watched, event);
}

int TickStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                         QStyleHintReturn *result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

} // namespace widgets
