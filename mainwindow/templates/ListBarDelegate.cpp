#include "mainwindow/templates/ListBarDelegate.h"

#include "support/MixColours.h"

#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>
#include <utility>

namespace mainwindow {

namespace {

constexpr int kMargin = 6;      // pixels around what a row holds
constexpr int kGap = 8;         // between icon and caption
constexpr int kChevron = 8;     // side of the sign that tells open from folded
constexpr int kRoundness = 4;   // of the field behind an item
constexpr int kMostLines = 3;   // of a caption
constexpr double kHover = 0.07; // how much of the ink lies over the ground
constexpr double kCurrent = 0.22;
constexpr double kNote = 0.62;

bool IsBar(const QModelIndex &index) { return !index.parent().isValid(); }

bool IsDark(const QPalette &palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QFont HeadingFont(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

QColor HeadingGround(const QPalette &palette, const QModelIndex &index) {
    if (IsDark(palette))
        return support::Mix(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.13);
    const QVariant told = index.data(listrole::kBackColor);
    return told.isValid() ? told.value<QColor>() : palette.color(QPalette::Button);
}

// The caption in lines of that width, the last one cut off where there are more than fit.
QStringList Lines(const QString &text, const QFont &font, int width, int mostLines) {
    QStringList lines;
    QTextLayout layout(text, font);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const bool last = lines.size() + 1 == mostLines;
        const QString rest = text.mid(line.textStart());
        if (last || line.naturalTextWidth() > width) {
            lines << QFontMetrics(font).elidedText(rest, Qt::ElideRight, width);
            break;
        }
        lines << rest.left(line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

int MostLines(const QStyleOptionViewItem &option) {
    const int lines = option.decorationSize.height() / option.fontMetrics.lineSpacing();
    return qBound(1, lines, kMostLines);
}

// Where the two parts of an item lie, from left to right.
struct Parts {
    QRect icon, caption;
};
Parts PartsOf(const QStyleOptionViewItem &option) {
    const QRect inner = option.rect.adjusted(kMargin, 0, -kMargin, 0);
    QRect icon(QPoint(inner.left() + 2, 0), option.decorationSize);
    icon.moveTop(inner.center().y() - icon.height() / 2 + 1);
    const QRect caption = inner.adjusted(icon.width() + 2 + kGap, 0, -2, 0);
    return {QStyle::visualRect(option.direction, option.rect, icon),
            QStyle::visualRect(option.direction, option.rect, caption)};
}

// The caption stands where a heading's chevron leaves room, the note at the far end.
struct HeadingParts {
    QRect chevron, caption, note;
};
HeadingParts HeadingPartsOf(const QStyleOptionViewItem &option, const QString &note) {
    const QRect inner = option.rect.adjusted(kMargin + 2, 0, -kMargin - 2, 0);
    QRect chevron(0, 0, kChevron, kChevron);
    chevron.moveCenter({inner.left() + kChevron / 2, inner.center().y()});
    const int noteWidth = note.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(note) + kGap;
    const QRect caption = inner.adjusted(kChevron + kGap, 0, -noteWidth, 0);
    QRect end = inner;
    end.setLeft(caption.right() + 1);
    const auto placed = [&](const QRect &part) {
        return QStyle::visualRect(option.direction, option.rect, part);
    };
    return {placed(chevron), placed(caption), placed(end)};
}

void PaintChevron(QPainter &painter, const QRectF &box, bool open, bool mirrored) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center());
    painter.rotate(open ? 90 : mirrored ? 180 : 0);
    QPainterPath path(QPointF(-box.width() / 6, -box.height() / 3));
    path.lineTo(box.width() / 6, 0);
    path.lineTo(-box.width() / 6, box.height() / 3);
    painter.drawPath(path);
    painter.restore();
}

Qt::Alignment Side(const QStyleOptionViewItem &option, bool atEnd) {
    const Qt::Alignment side = atEnd ? Qt::AlignRight : Qt::AlignLeft;
    return QStyle::visualAlignment(option.direction, side) | Qt::AlignVCenter;
}

void PaintHeading(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    const QPalette &palette = option.palette;
    const QColor ground = HeadingGround(palette, index), ink = palette.color(QPalette::Text);
    const bool hover = option.state & QStyle::State_MouseOver;
    painter.fillRect(option.rect, hover ? support::Mix(ground, ink, kHover) : ground);
    painter.fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)),
                     support::Mix(ground, ink, 2 * kHover));
    const QString note = index.data(listrole::kNote).toString();
    const HeadingParts parts = HeadingPartsOf(option, note);
    painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    PaintChevron(painter, parts.chevron, option.state & QStyle::State_Open,
                 option.direction == Qt::RightToLeft);
    painter.setPen(support::Mix(ground, ink, kNote));
    painter.setFont(option.font);
    painter.drawText(parts.note, int(Side(option, true)), note);
    painter.setPen(ink);
    painter.setFont(HeadingFont(option.font));
    const QString caption = QFontMetrics(painter.font())
                                .elidedText(index.data().toString(), Qt::ElideRight, parts.caption.width());
    painter.drawText(parts.caption, int(Side(option, false)), caption);
}

void PaintGround(QPainter &painter, const QStyleOptionViewItem &option) {
    const QPalette &palette = option.palette;
    const QColor base = palette.color(QPalette::Base);
    QColor ground;
    if (option.state & QStyle::State_Selected)
        ground = support::Mix(base, palette.color(QPalette::Highlight), kCurrent);
    else if (option.state & QStyle::State_MouseOver)
        ground = support::Mix(base, palette.color(QPalette::Text), kHover);
    if (!ground.isValid()) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(3, 1, -3, -1), kRoundness, kRoundness);
    painter.restore();
}

void PaintItem(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    PaintGround(painter, option);
    const Parts parts = PartsOf(option);
    const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
    icon.paint(&painter, parts.icon, Qt::AlignCenter);
    painter.setPen(option.palette.color(QPalette::Text));
    painter.setFont(option.font);
    const QStringList lines =
        Lines(index.data().toString(), option.font, parts.caption.width(), MostLines(option));
    painter.drawText(parts.caption, int(Side(option, false)), lines.join(u'\n'));
}

void PaintFocus(QPainter &painter, const QStyleOptionViewItem &option) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(2.5, 1.5, -2.5, -1.5), kRoundness, kRoundness);
    painter.restore();
}

} // namespace

void ListBarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const {
    painter->save();
    if (IsBar(index))
        PaintHeading(*painter, option, index);
    else
        PaintItem(*painter, option, index);
    if (option.state & QStyle::State_HasFocus) PaintFocus(*painter, option);
    painter->restore();
}

QSize ListBarDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const int line = option.fontMetrics.height();
    const int content = IsBar(index) ? line : qMax(line, option.decorationSize.height());
    return {2 * kMargin, content + 2 * kMargin};
}

bool ListBarDelegate::IsCut(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const QString text = index.data().toString();
    if (IsBar(index)) {
        const int room = HeadingPartsOf(option, index.data(listrole::kNote).toString()).caption.width();
        return QFontMetrics(HeadingFont(option.font)).horizontalAdvance(text) > room;
    }
    const QStringList lines = Lines(text, option.font, PartsOf(option).caption.width(), MostLines(option));
    return !lines.isEmpty() && lines.last() != text.right(lines.last().size()).trimmed();
}

} // namespace mainwindow
