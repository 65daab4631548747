// The bytes of a metafile: little-endian numbers, and rectangles of them, appended or put in later.
#pragma once

#include <cstdint>
#include <QByteArray>
#include <QRect>

namespace vector {

class MetafileBytes {
public:
    MetafileBytes &U8(unsigned value) { return Number(value, 1); }
    MetafileBytes &U16(unsigned value) { return Number(value, 2); }
    MetafileBytes &U32(std::uint32_t value) { return Number(value, 4); }
    MetafileBytes &I16(int value) { return Number(std::uint32_t(value), 2); }
    MetafileBytes &I32(int value) { return Number(std::uint32_t(value), 4); }
    MetafileBytes &F32(float value);
    MetafileBytes &Raw(const QByteArray &bytes) { return bytes_.append(bytes), *this; }
    MetafileBytes &Zeros(qsizetype count) { return bytes_.append(count, '\0'), *this; }
    MetafileBytes &Box32(const QRect &box); // left, top, right, bottom
    // Fills up with zeros until the size is a multiple of `step`.
    MetafileBytes &PadTo(int step);

    qsizetype Size() const { return bytes_.size(); }
    const QByteArray &Bytes() const { return bytes_; }

private:
    MetafileBytes &Number(std::uint32_t value, int bytes);

    QByteArray bytes_;
};

// Overwrites four bytes.
void PutU32(QByteArray &bytes, qsizetype at, std::uint32_t value);

} // namespace vector
