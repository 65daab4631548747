// After [MS-CFB]: a header, then sectors. A table, the FAT, tells of each sector which one follows it; the
// header tells where the FAT's own sectors lie, and the DIFAT those for which it has no room. Streams below
// 4096 bytes lie in small sectors, which are themselves a stream with a table of its own, the mini FAT.
#include "output/compound/CompoundFile.h"

#include "support/Error.h"

#include <algorithm>
#include <QtEndian>

namespace compound {

namespace {

constexpr int kSector = 512, kSmallSector = 64, kSmallLimit = 4096;
constexpr int kEntrySize = 128;       // of the directory
constexpr int kNumbers = kSector / 4; // of a FAT in a sector
constexpr int kHeaderNumbers = 109;   // sectors of the FAT of which the header itself tells the place
constexpr quint32 kFree = 0xFFFFFFFF, kEnd = 0xFFFFFFFE, kFatSector = 0xFFFFFFFD, kDifatSector = 0xFFFFFFFC;
constexpr quint32 kNoEntry = 0xFFFFFFFF;
constexpr qsizetype kLongestName = 31;
constexpr qint64 kMostBytes = 0x7FFFFFFF - 64LL * 1024 * 1024;

[[noreturn]] void Raise(long number, const char *text) {
    throw support::Error(number, QStringLiteral("CompoundFile"), QLatin1String(text));
}

template <typename T>
void Append(QByteArray &bytes, T value) {
    char raw[sizeof(T)];
    qToLittleEndian(value, raw);
    bytes.append(raw, sizeof raw);
}

qsizetype Sectors(qsizetype bytes, int size) { return (bytes + size - 1) / size; }

void Fill(QByteArray &bytes, int size, char with = 0) {
    bytes.append(Sectors(bytes.size(), size) * size - bytes.size(), with);
}

// A FAT: chains of sectors.
class Chains {
public:
    // The first of so many further sectors, one behind the other; kEnd for none.
    quint32 Add(qsizetype count) {
        if (count == 0) return kEnd;
        const auto first = quint32(next_.size());
        for (qsizetype i = 1; i < count; ++i) next_.push_back(first + quint32(i));
        next_.push_back(kEnd);
        return first;
    }
    void AddMarked(qsizetype count, quint32 mark) { next_.insert(next_.end(), std::size_t(count), mark); }
    qsizetype Count() const { return qsizetype(next_.size()); }
    QByteArray Bytes() const {
        QByteArray bytes;
        for (const quint32 next : next_) Append(bytes, next);
        while (bytes.size() % kSector) Append(bytes, kFree);
        return bytes;
    }

private:
    std::vector<quint32> next_;
};

// Names are sorted by length first, then without regard to case.
bool ComesBefore(const QString &a, const QString &b) {
    if (a.size() != b.size()) return a.size() < b.size();
    return a.toUpper() < b.toUpper();
}

enum class EntryKind : unsigned char { Free = 0, Stream = 2, Root = 5 };

struct Entry {
    QString name;
    EntryKind kind = EntryKind::Free;
    quint32 left = kNoEntry, right = kNoEntry, child = kNoEntry;
    quint32 start = 0;
    quint64 size = 0;
};

void AppendEntry(QByteArray &bytes, const Entry &entry, const ClassId &kind) {
    constexpr unsigned char kBlack = 1;
    const qsizetype begin = bytes.size();
    for (const QChar character : entry.name) Append(bytes, quint16(character.unicode()));
    bytes.resize(begin + kEntrySize / 2, 0);
    Append(bytes, quint16(entry.kind == EntryKind::Free ? 0 : 2 * (entry.name.size() + 1)));
    Append(bytes, quint8(entry.kind));
    Append(bytes, quint8(kBlack));
    for (const quint32 other : {entry.left, entry.right, entry.child}) Append(bytes, other);
    if (entry.kind == EntryKind::Root)
        bytes.append(reinterpret_cast<const char *>(kind.data()), qsizetype(kind.size()));
    else
        bytes.append(qsizetype(kind.size()), 0);
    bytes.append(4 + 8 + 8, 0); // state and times
    Append(bytes, entry.start);
    Append(bytes, entry.size);
}

// Makes a tree of the sorted entries from `first` to before `past`; the position of its root. All are black:
// a tree of halves is balanced anyhow.
quint32 MakeTree(std::vector<Entry> &entries, const std::vector<quint32> &sorted, std::size_t first,
                 std::size_t past) {
    if (first >= past) return kNoEntry;
    const std::size_t middle = (first + past) / 2;
    Entry &entry = entries[sorted[middle]];
    entry.left = MakeTree(entries, sorted, first, middle);
    entry.right = MakeTree(entries, sorted, middle + 1, past);
    return sorted[middle];
}

std::vector<quint32> Sorted(const std::vector<Stream> &streams) {
    std::vector<quint32> sorted;
    for (quint32 i = 0; i < streams.size(); ++i) sorted.push_back(i + 1); // behind the root
    std::sort(sorted.begin(), sorted.end(),
              [&](quint32 a, quint32 b) { return ComesBefore(streams[a - 1].name, streams[b - 1].name); });
    return sorted;
}

void Check(const std::vector<Stream> &streams) {
    qint64 all = 0;
    for (const Stream &stream : streams) {
        if (stream.name.isEmpty() || stream.name.size() > kLongestName)
            Raise(support::kErrInvalidProcedureCall, "The name of a stream is too long or empty.");
        all += stream.bytes.size();
    }
    if (all > kMostBytes) support::Raise(support::kErrOutOfMemory, QStringLiteral("CompoundFile"));
    const std::vector<quint32> sorted = Sorted(streams);
    for (std::size_t i = 1; i < sorted.size(); ++i)
        if (!ComesBefore(streams[sorted[i - 1] - 1].name, streams[sorted[i] - 1].name))
            Raise(support::kErrInvalidProcedureCall, "Two streams have the same name.");
}

// The file behind its header, and what the header tells of it.
struct Body {
    QByteArray bytes;
    Chains fat, miniFat;
    std::vector<Entry> entries;
    quint32 directory = kEnd, firstOfMiniFat = kEnd;
    qsizetype miniFatSectors = 0;

    quint32 Add(const QByteArray &content) {
        const quint32 first = fat.Add(Sectors(content.size(), kSector));
        bytes.append(content);
        Fill(bytes, kSector);
        return first;
    }
};

void AddStreams(Body &body, const std::vector<Stream> &streams) {
    QByteArray small;
    body.entries.push_back({QStringLiteral("Root Entry"), EntryKind::Root});
    for (const Stream &stream : streams) {
        Entry entry{stream.name, EntryKind::Stream};
        entry.size = quint64(stream.bytes.size());
        if (stream.bytes.size() < kSmallLimit) {
            entry.start = body.miniFat.Add(Sectors(stream.bytes.size(), kSmallSector));
            small.append(stream.bytes);
            Fill(small, kSmallSector);
        } else {
            entry.start = body.Add(stream.bytes);
        }
        body.entries.push_back(entry);
    }
    const std::vector<quint32> sorted = Sorted(streams);
    Entry &root = body.entries.front();
    root.start = body.Add(small);
    root.size = quint64(small.size());
    root.child = MakeTree(body.entries, sorted, 0, sorted.size());
}

void AddDirectory(Body &body, const ClassId &kind) {
    const QByteArray miniFat = body.miniFat.Bytes();
    body.miniFatSectors = miniFat.size() / kSector;
    body.firstOfMiniFat = body.Add(miniFat);
    QByteArray directory;
    for (const Entry &entry : body.entries) AppendEntry(directory, entry, kind);
    while (directory.size() % kSector) AppendEntry(directory, {}, kind);
    body.directory = body.Add(directory);
}

// How many sectors the FAT and the DIFAT take.
struct FatSize {
    qsizetype fat = 0, difat = 0;
};

// Both have their own sectors in the FAT as well: it grows until all fit.
FatSize SizeOfFat(qsizetype content) {
    FatSize size;
    for (;;) {
        const qsizetype fat = Sectors(content + size.fat + size.difat, kNumbers);
        const qsizetype beyond = std::max<qsizetype>(0, fat - kHeaderNumbers);
        const qsizetype difat = Sectors(beyond, kNumbers - 1);
        if (fat == size.fat && difat == size.difat) return size;
        size = {fat, difat};
    }
}

// Where the sectors of the FAT lie, beyond those that the header tells. The last number of each sector leads
// to the next one of the DIFAT.
QByteArray Difat(const FatSize &size, qsizetype firstOfFat) {
    QByteArray bytes;
    const qsizetype firstOfDifat = firstOfFat + size.fat;
    qsizetype told = kHeaderNumbers;
    for (qsizetype i = 0; i < size.difat; ++i) {
        for (int number = 0; number < kNumbers - 1; ++number, ++told)
            Append(bytes, told < size.fat ? quint32(firstOfFat + told) : kFree);
        Append(bytes, i + 1 < size.difat ? quint32(firstOfDifat + i + 1) : kEnd);
    }
    return bytes;
}

QByteArray Header(const Body &body, const FatSize &size, qsizetype firstOfFat) {
    QByteArray bytes("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    bytes.append(16, 0);
    // Minor and major version, byte order, and the sizes of sectors and small ones as powers of two.
    for (const int number : {0x3E, 3, 0xFFFE, 9, 6}) Append(bytes, quint16(number));
    bytes.append(6, 0);
    Append(bytes, quint32(0)); // sectors of the directory: told in later versions only
    Append(bytes, quint32(size.fat));
    Append(bytes, body.directory);
    Append(bytes, quint32(0)); // transactions
    Append(bytes, quint32(kSmallLimit));
    Append(bytes, body.firstOfMiniFat);
    Append(bytes, quint32(body.miniFatSectors));
    Append(bytes, size.difat ? quint32(firstOfFat + size.fat) : kEnd);
    Append(bytes, quint32(size.difat));
    for (qsizetype i = 0; i < kHeaderNumbers; ++i)
        Append(bytes, i < size.fat ? quint32(firstOfFat + i) : kFree);
    return bytes;
}

} // namespace

QByteArray CompoundFile(const std::vector<Stream> &streams, const ClassId &kind) {
    Check(streams);
    Body body;
    AddStreams(body, streams);
    AddDirectory(body, kind);
    const qsizetype firstOfFat = body.fat.Count();
    const FatSize size = SizeOfFat(firstOfFat);
    body.fat.AddMarked(size.fat, kFatSector);
    body.fat.AddMarked(size.difat, kDifatSector);
    return Header(body, size, firstOfFat) + body.bytes + body.fat.Bytes() + Difat(size, firstOfFat);
}

} // namespace compound
