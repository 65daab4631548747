// A text with bold, slanted and code parts and links, laid out in lines of a width.
#pragma once

#include <memory>
#include <QTextBlock>
#include <QTextLayout>

namespace product {

struct RichText {
    QString text;
    QList<QTextLayout::FormatRange> formats;
};

struct TextLook {
    double size = 0; // points
    QColor colour;
    bool bold = false;
};

RichText PlainText(const QString &text, const TextLook &look, const QString &link = QString());
RichText TextOf(const QTextBlock &block, const TextLook &look);

// The name by which a heading is linked to: in lower case, hyphens for blanks, no other signs.
QString AnchorOf(const QString &heading);

using Layout = std::shared_ptr<QTextLayout>;
// Every line stands at y 0: the painters below place them, each LineHeight high.
Layout LayOut(const RichText &text, const TextLook &look, double width, double indent = 0);
double LineHeight(const QTextLine &line);
double HeightOf(const QTextLayout &layout);
// The width of the text on one line.
double NaturalWidth(const RichText &text, const TextLook &look);
// One line, or all of them below each other, with the left top corner of the layout at the point.
void PaintLine(const QTextLayout &layout, int line, QPainter &painter, QPointF at);
void PaintText(const QTextLayout &layout, QPainter &painter, QPointF at);

} // namespace product
