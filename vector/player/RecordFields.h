// The fields of one record, read in order. Reading behind the end gives zeros and makes the record bad.
#pragma once

#include <bit>
#include <cstdint>
#include <QByteArrayView>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QtEndian>

namespace vector {

class RecordFields {
public:
    explicit RecordFields(QByteArrayView bytes) : bytes_(bytes) {}

    bool Good() const { return good_; }
    qsizetype Left() const { return bytes_.size() - at_; }
    QByteArrayView Whole() const { return bytes_; }

    int U8() { return Number<std::uint8_t>(); }
    int I16() { return Number<std::int16_t>(); }
    int U16() { return Number<std::uint16_t>(); }
    int I32() { return Number<std::int32_t>(); }
    std::uint32_t U32() { return Number<std::uint32_t>(); }
    float F32() { return std::bit_cast<float>(U32()); }
    RecordFields &Skip(qsizetype bytes) { return (void)Take(bytes), *this; }

    QByteArrayView Take(qsizetype size) {
        if (size < 0 || size > Left()) {
            good_ = false;
            at_ = bytes_.size();
            return {};
        }
        at_ += size;
        return bytes_.sliced(at_ - size, size);
    }
    // Bytes counted from the record's start; empty when some of them are outside.
    QByteArrayView Part(std::uint32_t from, std::uint32_t size) const {
        const bool inside = from <= std::uint32_t(bytes_.size()) && size <= bytes_.size() - qsizetype(from);
        return inside ? bytes_.sliced(qsizetype(from), qsizetype(size)) : QByteArrayView();
    }

    // x before y, of 32 or 16 bits.
    QPointF Point() {
        const int x = I32();
        return QPointF(x, I32());
    }
    QPointF ShortPoint() {
        const int x = I16();
        return QPointF(x, I16());
    }
    // y before x, of 16 bits.
    QPointF PointYX() {
        const int y = I16();
        return QPointF(I16(), y);
    }
    // Left, top, right, bottom; may be inside out.
    QRectF Box() {
        const QPointF corner = Point();
        return {corner, Point()};
    }
    // Bottom, right, top, left of 16 bits.
    QRectF BoxFromBelow() {
        const QPointF far = PointYX();
        return {PointYX(), far};
    }
    // Points of 16 or 32 bits. A record that announces more points than it holds is bad and gives none.
    QPolygonF Points(std::uint32_t count, bool isShort) {
        QPolygonF points;
        if (count > std::uint32_t(Left() / (isShort ? 4 : 8))) return good_ = false, points;
        points.reserve(qsizetype(count));
        for (; count > 0; --count) points.append(isShort ? ShortPoint() : Point());
        return points;
    }

private:
    template <typename T>
    T Number() {
        const QByteArrayView taken = Take(sizeof(T));
        return taken.isEmpty() ? T(0) : qFromLittleEndian<T>(taken.data());
    }

    QByteArrayView bytes_;
    qsizetype at_ = 0;
    bool good_ = true;
};

} // namespace vector
