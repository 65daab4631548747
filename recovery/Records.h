// A journal file as records, one behind the other, each with its length and a sum, so that of a file that was
// cut off or damaged every sound record can still be read.
#pragma once

#include <cstdint>
#include <optional>
#include <QByteArray>

namespace recovery {

enum class RecordKind : std::uint8_t {
    Head = 1,   // first in the file: the version
    Part = 2,   // some items of one slice
    Commit = 3, // what stands before it belongs together
    Files = 4,  // which copies of files belong to the attachments
};

QByteArray Record(RecordKind kind, const QByteArray &content);

struct SoundRecord {
    RecordKind kind;
    QByteArrayView content;
    qsizetype end; // of the record, in the file
};

// Walks over the sound records of the bytes, which must outlive it and what it gives.
class RecordWalk {
public:
    explicit RecordWalk(QByteArrayView bytes) : bytes_(bytes) {}
    std::optional<SoundRecord> Next();
    // Whether bytes between sound records were passed over, and whether bytes behind the last one are left.
    bool IsDamaged() const { return damaged_; }
    bool IsCut() const { return cut_; }

private:
    std::optional<SoundRecord> At(qsizetype place) const;

    QByteArrayView bytes_;
    qsizetype place_ = 0;
    bool damaged_ = false, cut_ = false;
};

} // namespace recovery
