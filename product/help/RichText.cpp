#include "product/help/RichText.h"

#include "product/help/Style.h"

#include <QPainter>
#include <QRegularExpression>

namespace product {

namespace {

constexpr double kUnbounded = 1e7;

QFont FontOf(const QTextCharFormat &format, const TextLook &look) {
    QFont font = format.fontFixedPitch() ? style::CodeFont(look.size) : style::TextFont(look.size);
    font.setBold(look.bold || format.fontWeight() > QFont::Medium);
    font.setItalic(format.fontItalic());
    return font;
}

QTextCharFormat FormatOf(const QTextCharFormat &from, const TextLook &look) {
    QTextCharFormat format;
    format.setFont(FontOf(from, look));
    format.setForeground(look.colour);
    if (!from.anchorHref().isEmpty()) {
        format.setAnchor(true);
        format.setAnchorHref(from.anchorHref());
        format.setForeground(style::kHeading);
    }
    return format;
}

void Append(RichText &to, const QString &text, const QTextCharFormat &format) {
    to.formats << QTextLayout::FormatRange{int(to.text.size()), int(text.size()), format};
    to.text += text;
}

void BreakLines(QTextLayout &layout, double width, double indent) {
    layout.beginLayout();
    for (QTextLine line; (line = layout.createLine()).isValid();) {
        line.setLineWidth(width - indent);
        line.setPosition(QPointF(indent, 0));
    }
    layout.endLayout();
}

} // namespace

RichText PlainText(const QString &text, const TextLook &look, const QString &link) {
    RichText rich;
    QTextCharFormat from;
    if (!link.isEmpty()) from.setAnchorHref(link);
    QTextCharFormat format = FormatOf(from, look);
    format.setForeground(look.colour);
    Append(rich, text, format);
    return rich;
}

RichText TextOf(const QTextBlock &block, const TextLook &look) {
    RichText rich;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        if (!fragment.charFormat().isImageFormat())
            Append(rich, fragment.text(), FormatOf(fragment.charFormat(), look));
    }
    return rich;
}

QString AnchorOf(const QString &heading) {
    static const QRegularExpression other(QStringLiteral("[^\\w -]"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(other).replace(u' ', u'-');
}

Layout LayOut(const RichText &text, const TextLook &look, double width, double indent) {
    auto layout = std::make_shared<QTextLayout>(text.text, style::TextFont(look.size));
    layout->setFormats(text.formats);
    layout->setCacheEnabled(true);
    BreakLines(*layout, width, indent);
    return layout;
}

double LineHeight(const QTextLine &line) { return line.height() * style::kLineHeight; }

double HeightOf(const QTextLayout &layout) {
    double height = 0;
    for (int i = 0; i < layout.lineCount(); ++i) height += LineHeight(layout.lineAt(i));
    return height;
}

double NaturalWidth(const RichText &text, const TextLook &look) {
    const Layout layout = LayOut(text, look, kUnbounded);
    return layout->lineCount() ? layout->lineAt(0).naturalTextWidth() : 0;
}

void PaintLine(const QTextLayout &layout, int line, QPainter &painter, QPointF at) {
    layout.lineAt(line).draw(&painter, at);
}

void PaintText(const QTextLayout &layout, QPainter &painter, QPointF at) {
    for (int i = 0; i < layout.lineCount(); ++i) {
        PaintLine(layout, i, painter, at);
        at.ry() += LineHeight(layout.lineAt(i));
    }
}

} // namespace product
