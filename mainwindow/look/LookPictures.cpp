#include "mainwindow/look/LookPictures.h"

#include "mainwindow/icons/Icons.h"
#include "widgets/ColourPalette.h"
#include "widgets/PaintedIconEngine.h"
#include "widgets/PropertyLists.h"
#include "widgets/SwatchIcon.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace mainwindow {

namespace {

using widgets::ListOf;

constexpr int kHeight = 20, kChevron = 9, kDrawing = 20, kPicture = 30; // pixels of a button's picture
constexpr qreal kFaded = 0.35;     // how much of a picture that is disabled is seen
constexpr qreal kBarHeight = 0.22; // of the height

struct LookList {
    LookOf what;
    ListOf list;
};
constexpr LookList kLists[] = {
    {LookOf::LineWidth, ListOf::DrawWidths}, {LookOf::LineStyle, ListOf::DrawStyles},
    {LookOf::Shadow, ListOf::Shadows},       {LookOf::Shape, ListOf::Shapes},
    {LookOf::Routing, ListOf::Routings},     {LookOf::ArrowStart, ListOf::Arrows},
    {LookOf::ArrowEnd, ListOf::Arrows},      {LookOf::Jumps, ListOf::JumpStyles},
};

bool IsHead(LookOf what) { return what == LookOf::ArrowStart || what == LookOf::ArrowEnd; }

QString Tr(const char *text) { return QCoreApplication::translate("mainwindow::Look", text); }

QColor Ink() { return QGuiApplication::palette().color(QPalette::WindowText); }

// The same picture seen in a mirror.
class MirroredEngine : public widgets::PaintedIconEngine {
public:
    explicit MirroredEngine(QIcon icon) : icon_(std::move(icon)) {}
    QIconEngine *clone() const override { return new MirroredEngine(*this); }

protected:
    void Paint(QPainter &painter, const QSize &size, QIcon::Mode mode) override {
        painter.translate(size.width(), 0);
        painter.scale(-1, 1);
        icon_.paint(&painter, QRect(QPoint(), size), Qt::AlignCenter, mode);
    }

private:
    QIcon icon_;
};

// What a button shows, and the chevron behind it that tells of a list.
class ButtonEngine : public widgets::PaintedIconEngine {
public:
    ButtonEngine(const LookRow &row, const LookState &state) : row_(row), state_(state) {}
    QIconEngine *clone() const override { return new ButtonEngine(*this); }

protected:
    void Paint(QPainter &painter, const QSize &size, QIcon::Mode mode) override {
        painter.setRenderHint(QPainter::Antialiasing);
        if (mode == QIcon::Disabled) painter.setOpacity(kFaded);
        const qreal unit = size.height() / qreal(kHeight);
        const QRectF box(0, 0, size.width() - kChevron * unit, size.height());
        PaintChevron(painter, QPointF(size.width() - 4 * unit, size.height() / 2.0), unit);
        if (IsColour(row_.what))
            PaintColour(painter, box);
        else
            PaintPicture(painter, box, unit);
    }

private:
    void PaintChevron(QPainter &painter, const QPointF &at, qreal unit) const {
        painter.setPen(QPen(Ink(), 1.3 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const qreal reach = 2.5 * unit;
        painter.drawPolyline(QPolygonF{{at.x() - reach, at.y() - reach / 2},
                                       {at.x(), at.y() + reach / 2},
                                       {at.x() + reach, at.y() - reach / 2}});
    }

    void PaintDrawing(QPainter &painter, const QRectF &box) const {
        Icon(QLatin1String(row_.image)).paint(&painter, box.toAlignedRect());
    }

    void PaintColour(QPainter &painter, const QRectF &box) const {
        const qreal high = box.height() * kBarHeight, gap = box.height() / 20;
        const qreal side = box.height() - high - gap;
        PaintDrawing(painter, QRectF(box.center().x() - side / 2, 0, side, side));
        const QRectF bar(box.left() + gap, box.bottom() - high, box.width() - 2 * gap, high);
        if (!state_.fits) return;
        if (!state_.value)
            PaintHatched(painter, bar);
        else if (*state_.value == kNoFill)
            widgets::PaintNoColour(painter, bar, Ink());
        else
            widgets::PaintSwatch(painter, bar, support::Colour(*state_.value), Ink());
    }

    static void PaintHatched(QPainter &painter, const QRectF &bar) {
        painter.save();
        painter.setClipRect(bar);
        painter.fillRect(bar, Qt::white);
        const qreal step = bar.height() * 0.9;
        painter.setPen(QPen(QColor(0x30, 0x30, 0x30), step * 0.42));
        for (qreal x = bar.left() - bar.height(); x < bar.right(); x += step)
            painter.drawLine(QPointF(x, bar.bottom()), QPointF(x + bar.height(), bar.top()));
        painter.restore();
    }

    void PaintPicture(QPainter &painter, const QRectF &box, qreal unit) const {
        if (state_.value && row_.what == LookOf::LineWidth) return PaintWidth(painter, box, unit);
        if (state_.value && IsHead(row_.what)) return PaintHead(painter, box, unit);
        if (state_.value) return PictureOfLook(row_, *state_.value).paint(&painter, box.toAlignedRect());
        const qreal side = state_.fits ? box.height() * 0.72 : box.height();
        PaintDrawing(painter, QRectF(box.center() - QPointF(side / 2, side / 2), QSizeF(side, side)));
        if (!state_.fits) return;
        painter.setPen(QPen(Ink(), unit, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(unit, unit, -unit, -unit), 2 * unit, 2 * unit);
    }

    // The edge of the node at which the head lies: without it an end that has none would look like any line.
    void PaintHead(QPainter &painter, const QRectF &box, qreal unit) const {
        const qreal room = 3.5 * unit;
        const bool atStart = row_.what == LookOf::ArrowStart;
        const QRectF line = atStart ? box.adjusted(room, 0, 0, 0) : box.adjusted(0, 0, -room, 0);
        PictureOfLook(row_, *state_.value).paint(&painter, line.toAlignedRect());
        const qreal x = atStart ? box.left() + room - unit : box.right() - room + unit;
        painter.setPen(QPen(QGuiApplication::palette().color(QPalette::Highlight), 2.2 * unit, Qt::SolidLine,
                            Qt::RoundCap));
        painter.drawLine(QPointF(x, box.top() + 4 * unit), QPointF(x, box.bottom() - 4 * unit));
    }

    // The number beside the line tells the button from that of the line's style.
    void PaintWidth(QPainter &painter, const QRectF &box, qreal unit) const {
        const qreal thick = qBound(0.5, *state_.value, 8.0) * unit, number = 11 * unit;
        QFont font = QGuiApplication::font();
        font.setPixelSize(qMax(1, int(12 * unit)));
        painter.setFont(font);
        painter.setPen(Ink());
        painter.drawText(box.adjusted(0, 0, number - box.width(), 0), Qt::AlignCenter,
                         QString::number(*state_.value));
        painter.setPen(QPen(Ink(), thick, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(box.left() + number + 2 * unit, box.center().y()),
                         QPointF(box.right() - unit, box.center().y()));
    }

    const LookRow &row_;
    LookState state_;
};

} // namespace

std::optional<ListOf> ListOfLook(LookOf what) {
    for (const LookList &row : kLists)
        if (row.what == what) return row.list;
    return {};
}

bool IsColour(LookOf what) { return !ListOfLook(what); }

QString NameOfLook(const LookRow &row, double value) {
    const std::optional<ListOf> list = ListOfLook(row.what);
    if (!list) return value == kNoFill ? Tr("none") : widgets::NameInPalette(support::Colour(value));
    if (row.what == LookOf::LineWidth) return Tr("%1 px").arg(value);
    for (const widgets::ListEntry &entry : widgets::EntriesOf(*list))
        if (entry.value == value) return entry.text;
    return QString::number(value);
}

QIcon PictureOfLook(const LookRow &row, double value) {
    const std::optional<ListOf> list = ListOfLook(row.what);
    if (list) {
        const QIcon picture = widgets::PictureOf(*list, int(value));
        return row.what == LookOf::ArrowStart ? QIcon(new MirroredEngine(picture)) : picture;
    }
    return value == kNoFill ? widgets::NoColourIcon() : widgets::SwatchIcon(support::Colour(value));
}

QIcon ButtonPicture(const LookRow &row, const LookState &state) {
    return QIcon(new ButtonEngine(row, state));
}

QSize ButtonPictureSize(LookOf what) { return {(IsColour(what) ? kDrawing : kPicture) + kChevron, kHeight}; }

} // namespace mainwindow
