#include "mainwindow/controls/FontSamples.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <utility>

namespace mainwindow {

namespace {

constexpr double kRowHeight = 1.6;   // of the height of a line
constexpr double kSampleSize = 1.15; // of the size of the list's own font
constexpr int kMargin = 6;           // pixels beside a name
constexpr double kSpareWidth = 1.35; // a font may be that much wider than the list's own

QFont SampleFont(const QString &family, const QFont &own) {
    QFont font(own);
    font.setFamilies({family, own.family()});
    font.setPointSizeF(own.pointSizeF() * kSampleSize);
    return font;
}

// What the font can write when it can't write its own name; empty when it can.
QString SignsOf(const QString &family) {
    const QList<QFontDatabase::WritingSystem> systems = QFontDatabase::writingSystems(family);
    const bool signsOnly =
        systems.contains(QFontDatabase::Symbol) || family.contains(QLatin1String("Symbol"));
    if (systems.isEmpty() || (systems.contains(QFontDatabase::Latin) && !signsOnly)) return {};
    return QFontDatabase::writingSystemSample(systems.last());
}

void DrawRow(QPainter &painter, const QRect &row, const QString &family, const QFont &own) {
    const QString signs = SignsOf(family);
    const QFont font = SampleFont(family, own);
    painter.setFont(signs.isEmpty() ? font : own);
    const QString name = painter.fontMetrics().elidedText(family, Qt::ElideRight, row.width());
    painter.drawText(row, Qt::AlignVCenter | Qt::TextSingleLine, name);
    if (signs.isEmpty()) return;
    const int used = painter.fontMetrics().horizontalAdvance(name) + 2 * kMargin;
    painter.setFont(font);
    painter.drawText(row.adjusted(used, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine, signs);
}

} // namespace

QSize FontSamples::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const int width = option.fontMetrics.horizontalAdvance(index.data().toString());
    return {int(width * kSpareWidth) + 2 * kMargin, int(option.fontMetrics.height() * kRowHeight)};
}

void FontSamples::paint(QPainter *painter, const QStyleOptionViewItem &option,
                        const QModelIndex &index) const {
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    const QString family = std::exchange(row.text, QString());
    const QStyle *style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget); // the ground alone
    const bool selected = row.state & QStyle::State_Selected;
    painter->save();
    painter->setClipRect(row.rect);
    painter->setPen(row.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    DrawRow(*painter, row.rect.adjusted(kMargin, 0, -kMargin, 0), family, row.font);
    painter->restore();
}

} // namespace mainwindow
