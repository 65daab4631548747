// Building blocks of SVG text: numbers, escapes, colours.
#pragma once

#include <QByteArray>
#include <QPainterPath>
#include <QRgb>
#include <QString>
#include <string>
#include <string_view>

namespace diagram {

// Appends to one buffer. Numbers have at most two decimals.
class SvgText {
public:
    SvgText &operator<<(std::string_view text) { return bytes_.append(text), *this; }
    SvgText &operator<<(const char *text) { return bytes_.append(text), *this; }
    SvgText &operator<<(const QByteArray &text) {
        return bytes_.append(text.constData(), std::size_t(text.size())), *this;
    }
    SvgText &Number(double value);
    // `name="value"` with a blank before it.
    SvgText &Attribute(std::string_view name, double value);
    SvgText &Escaped(const QString &text);
    SvgText &Path(const QPainterPath &path);
    SvgText &Point(const QPointF &point);

    void Reserve(std::size_t size) { bytes_.reserve(size); }
    const std::string &Text() const { return bytes_; }
    QByteArray Bytes() const { return QByteArray(bytes_.data(), qsizetype(bytes_.size())); }

private:
    std::string bytes_;
};

QByteArray SvgColour(QRgb colour); // #rrggbb

} // namespace diagram
