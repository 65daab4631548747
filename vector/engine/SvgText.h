// Building blocks of SVG text: numbers, escapes, colours. Large pictures are hundreds of thousands of small
// pieces, so that what a piece costs matters.
#pragma once

#include <cstring>
#include <QByteArray>
#include <QPainterPath>
#include <QRgb>
#include <QString>
#include <string_view>

namespace vector {

// Appends to one buffer. Numbers have at most two decimals.
class SvgText {
public:
    SvgText() = default;
    SvgText(const SvgText &) = delete;
    SvgText &operator=(const SvgText &) = delete;

    SvgText &operator<<(std::string_view text) { return Put(text.data(), qsizetype(text.size())), *this; }
    SvgText &operator<<(const char *text) { return *this << std::string_view(text); }
    SvgText &operator<<(const QByteArray &text) { return Put(text.constData(), text.size()), *this; }
    SvgText &operator<<(const SvgText &text) { return *this << text.Text(); }
    SvgText &Number(double value);
    // `name="value"` with a blank before it.
    SvgText &Attribute(std::string_view name, double value);
    SvgText &Escaped(const QString &text);
    SvgText &Path(const QPainterPath &path);
    SvgText &Point(const QPointF &point);
    SvgText &Colour(QRgb colour); // #rrggbb

    void Clear() { used_ = 0; }
    std::string_view Text() const { return {start_, std::size_t(used_)}; }
    // Gives back the room that was not needed; after that the bytes are shared, not copied.
    void Finish();
    QByteArray Bytes() const { return used_ == bytes_.size() ? bytes_ : bytes_.left(used_); }

private:
    // Where `size` more bytes can be written; `used_` says how many of them were.
    char *Room(qsizetype size) {
        if (size > bytes_.size() - used_) Grow(size);
        return start_ + used_;
    }
    void Put(const char *text, qsizetype size) {
        if (size == 0) return;
        std::memcpy(Room(size), text, std::size_t(size));
        used_ += size;
    }
    void Grow(qsizetype size);

    QByteArray bytes_; // as much as there is room for
    char *start_ = nullptr;
    qsizetype used_ = 0;
};

} // namespace vector
