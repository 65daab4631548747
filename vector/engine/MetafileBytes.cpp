#include "vector/engine/MetafileBytes.h"

#include <bit>
#include <QtEndian>

namespace vector {

MetafileBytes &MetafileBytes::Number(std::uint32_t value, int bytes) {
    char raw[4];
    qToLittleEndian(value, raw);
    bytes_.append(raw, bytes);
    return *this;
}

MetafileBytes &MetafileBytes::F32(float value) { return U32(std::bit_cast<std::uint32_t>(value)); }

MetafileBytes &MetafileBytes::Box32(const QRect &box) {
    return I32(box.left()).I32(box.top()).I32(box.left() + box.width()).I32(box.top() + box.height());
}

MetafileBytes &MetafileBytes::PadTo(int step) { return Zeros((step - bytes_.size() % step) % step); }

void PutU32(QByteArray &bytes, qsizetype at, std::uint32_t value) {
    qToLittleEndian(value, bytes.data() + at);
}

} // namespace vector
