#include "widgets/ProgramStyle.h"

#include "support/Contrast.h"
#include "support/MixColours.h"
#include "widgets/PaintedIconEngine.h"

#include <algorithm>
#include <QApplication>
#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

namespace widgets {

namespace {

constexpr double kInk = 0.55; // of the frame, the rest is the box's own colour
constexpr qreal kHalf = 0.5;  // of a pixel

// The name under which the application's style is made; behind a ProgramStyle that of the style it stands
// for.
QString StyleName() {
    const QStyle *style = QApplication::style();
    if (const auto *proxy = qobject_cast<const QProxyStyle *>(style)) style = proxy->baseStyle();
    return style->name();
}

// Asks the style for its picture when that is to be seen.
class LateIconEngine : public QIconEngine {
public:
    LateIconEngine(const QStyle &style, QStyle::StandardPixmap what) : style_(&style), what_(what) {}
    QIconEngine *clone() const override { return new LateIconEngine(*this); }

    void paint(QPainter *painter, const QRect &box, QIcon::Mode mode, QIcon::State state) override {
        Made().paint(painter, box, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        return Made().pixmap(size, 1, mode, state);
    }
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
        return Made().pixmap((QSizeF(size) / scale).toSize(), scale, mode, state);
    }
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        return Made().actualSize(size, mode, state);
    }

private:
    const QIcon &Made() {
        if (style_ && icon_.isNull()) icon_ = style_->standardIcon(what_);
        return icon_;
    }

    QPointer<const QStyle> style_;
    QStyle::StandardPixmap what_;
    QIcon icon_;
};

// Two chevrons that point to where a bar goes on.
class MoreEngine : public PaintedIconEngine {
public:
    explicit MoreEngine(Qt::Orientation along) : along_(along) {}
    QIconEngine *clone() const override { return new MoreEngine(*this); }

protected:
    void Paint(QPainter &painter, const QSize &size, QIcon::Mode) override {
        const qreal unit = std::min(size.width(), size.height()) / 10.0;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QGuiApplication::palette().color(QPalette::ButtonText), 1.3, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.translate(size.width() / 2.0, size.height() / 2.0);
        painter.scale(unit, unit);
        if (along_ == Qt::Vertical)
            painter.rotate(90);
        else if (QGuiApplication::isRightToLeft())
            painter.rotate(180);
        for (const qreal x : {-3.5, 0.5}) painter.drawPolyline(QPolygonF{{x, -2.5}, {x + 2.5, 0}, {x, 2.5}});
    }

private:
    Qt::Orientation along_;
};

} // namespace

QColor FrameOfTick(const QPalette &palette) {
    return support::Mix(palette.color(QPalette::Base), palette.color(QPalette::Text), kInk);
}

void MakePlaceholderReadable(QLineEdit &field) {
    QPalette palette = field.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = palette.color(group, QPalette::PlaceholderText);
        palette.setColor(group, QPalette::PlaceholderText,
                         support::Readable(text, palette.color(group, QPalette::Base),
                                           palette.color(group, QPalette::Text)));
    }
    if (palette != field.palette()) field.setPalette(palette);
}

ProgramStyle::ProgramStyle()
    : QProxyStyle(StyleName()),
      framesBoxes_(baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0) {}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                 const QWidget *widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool focused = option->state.testFlag(State_HasFocus) &&
                         option->state.testFlag(State_KeyboardFocusChange); // has a frame of its own
    if (element != PE_IndicatorCheckBox || !framesBoxes_ || focused) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(FrameOfTick(option->palette));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(option->rect).adjusted(kHalf, kHalf, -kHalf, -kHalf));
    painter->restore();
}

void ProgramStyle::polish(QWidget *widget) {
    QProxyStyle::polish(widget);
    auto *field = qobject_cast<QLineEdit *>(widget);
    if (!field) return;
    field->installEventFilter(this);
    MakePlaceholderReadable(*field);
}

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption *option,
                                 const QWidget *widget) const {
    switch (icon) {
    case SP_ToolBarHorizontalExtensionButton:
        return QIcon(new MoreEngine(Qt::Horizontal));
    case SP_ToolBarVerticalExtensionButton:
        return QIcon(new MoreEngine(Qt::Vertical));
    case SP_LineEditClearButton:
        return QIcon(new LateIconEngine(*baseStyle(), icon));
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

void ProgramStyle::unpolish(QWidget *widget) {
    if (qobject_cast<QLineEdit *>(widget)) widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

bool ProgramStyle::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::PaletteChange) MakePlaceholderReadable(static_cast<QLineEdit &>(*watched));
    return QProxyStyle::eventFilter(watched, event);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

} // namespace widgets
