// The form of a record: mark (4 bytes), kind (1), length of the content (4), sum (8) of kind, length and
// content; then the content.
#include "recovery/Records.h"

#include "diagram/format/Bytes.h"

#include <QCryptographicHash>

namespace recovery {

namespace {

constexpr char kMark[] = "VJr\x1A";
constexpr qsizetype kMarkSize = 4, kSumSize = 8, kHeadSize = kMarkSize + 1 + 4 + kSumSize;

QByteArray KindAndLength(RecordKind kind, qsizetype length) {
    diagram::ByteWriter writer;
    writer.Put(std::uint8_t(kind));
    writer.PutCount(length);
    return writer.Bytes();
}

QByteArray SumOf(const QByteArray &kindAndLength, QByteArrayView content) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(kindAndLength);
    hash.addData(content);
    return hash.result().first(kSumSize);
}

bool IsKind(std::uint8_t kind) {
    return kind >= std::uint8_t(RecordKind::Head) && kind <= std::uint8_t(RecordKind::Files);
}

} // namespace

QByteArray Record(RecordKind kind, const QByteArray &content) {
    const QByteArray described = KindAndLength(kind, content.size());
    QByteArray record(kMark, kMarkSize);
    record.reserve(kHeadSize + content.size());
    return record + described + SumOf(described, content) + content;
}

std::optional<SoundRecord> RecordWalk::At(qsizetype place) const {
    if (bytes_.size() - place < kHeadSize) return std::nullopt;
    diagram::ByteReader reader(bytes_.sliced(place));
    if (reader.Take(kMarkSize) != QByteArrayView(kMark, kMarkSize)) return std::nullopt;
    const auto kind = reader.Get<std::uint8_t>();
    const qsizetype length = reader.Get<std::uint32_t>();
    const QByteArrayView sum = reader.Take(kSumSize);
    if (!IsKind(kind) || length > bytes_.size() - place - kHeadSize) return std::nullopt;
    const QByteArrayView content = reader.Take(length);
    if (sum != SumOf(KindAndLength(RecordKind(kind), length), content)) return std::nullopt;
    return SoundRecord{RecordKind(kind), content, place + kHeadSize + length};
}

std::optional<SoundRecord> RecordWalk::Next() {
    const QByteArrayView mark(kMark, kMarkSize);
    for (qsizetype at = place_; at < bytes_.size(); ++at) {
        at = QByteArray::fromRawData(bytes_.data(), bytes_.size()).indexOf(mark, at);
        if (at < 0) break;
        if (const auto found = At(at)) {
            damaged_ = damaged_ || at != place_;
            place_ = found->end;
            return found;
        }
    }
    cut_ = place_ < bytes_.size();
    return std::nullopt;
}

} // namespace recovery
