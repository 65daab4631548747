#include "output/package/Zip.h"

#include "support/Error.h"

#include <QSet>
#include <QtEndian>
#include <zlib.h>

namespace package {

namespace {

// Marks, fields and their order are those of PKWARE's APPNOTE.TXT, sections 4.3.7, 4.3.12 and 4.3.16.
constexpr quint32 kLocal = 0x04034b50, kCentral = 0x02014b50, kEnd = 0x06054b50;
constexpr quint16 kVersion = 20;   // 2.0: folders, deflate
constexpr quint16 kUtf8 = 1 << 11; // flag: the name is UTF-8
constexpr quint16 kStored = 0, kDeflated = 8;
constexpr quint16 kFirstDay = 1 << 5 | 1; // 1 January 1980
constexpr int kLevel = 6, kMemory = 8;    // of the compression
constexpr qsizetype kMostBytes = 0xfffffffe, kMostEntries = 0xfffe;

[[noreturn]] void Raise(const QString &text) {
    throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("ZipFile"), text);
}

[[noreturn]] void RaiseNoMemory() {
    throw support::Error(7, QStringLiteral("ZipFile"), QStringLiteral("Out of memory"));
}

template <typename Number>
void Put(QByteArray &to, Number number) {
    char bytes[sizeof number];
    qToLittleEndian(number, bytes);
    to.append(bytes, sizeof number);
}

// Without the frame that zlib would put around it.
QByteArray Deflated(const QByteArray &bytes) {
    z_stream stream{};
    if (deflateInit2(&stream, kLevel, Z_DEFLATED, -MAX_WBITS, kMemory, Z_DEFAULT_STRATEGY) != Z_OK)
        RaiseNoMemory();
    QByteArray packed(qsizetype(deflateBound(&stream, uLong(bytes.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(bytes.constData()));
    stream.avail_in = uInt(bytes.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = uInt(packed.size());
    const bool whole = deflate(&stream, Z_FINISH) == Z_STREAM_END;
    packed.truncate(qsizetype(stream.total_out));
    deflateEnd(&stream);
    if (!whole) Raise(QStringLiteral("The archive can't be packed."));
    return packed;
}

class Archive {
public:
    void Add(const ZipEntry &entry) {
        CheckSize(entry.bytes.size());
        const QByteArray name = entry.name.toUtf8();
        const QByteArray content = entry.packed ? Deflated(entry.bytes) : entry.bytes;
        CheckSize(file_.size() + content.size() + name.size());
        const QByteArray facts = FactsOf(entry, name, content);
        NoteEntry(name, facts);
        Put(file_, kLocal);
        file_ += facts + name + content;
    }

    QByteArray Bytes() const {
        CheckSize(file_.size() + directory_.size());
        QByteArray bytes = file_ + directory_;
        Put(bytes, kEnd);
        Put(bytes, quint32(0)); // of disks there is but the first
        Put(bytes, quint16(count_));
        Put(bytes, quint16(count_));
        Put(bytes, quint32(directory_.size()));
        Put(bytes, quint32(file_.size()));
        Put(bytes, quint16(0)); // no comment
        return bytes;
    }

private:
    static void CheckSize(qsizetype size) {
        if (size > kMostBytes) Raise(QStringLiteral("The archive is too large."));
    }

    // What stands before the name in both places.
    static QByteArray FactsOf(const ZipEntry &entry, const QByteArray &name, const QByteArray &content) {
        const bool plain = name.size() == entry.name.size();
        QByteArray facts;
        Put(facts, kVersion);
        Put(facts, plain ? quint16(0) : kUtf8);
        Put(facts, entry.packed ? kDeflated : kStored);
        Put(facts, quint16(0)); // midnight
        Put(facts, kFirstDay);
        const auto *bytes = reinterpret_cast<const Bytef *>(entry.bytes.constData());
        Put(facts, quint32(crc32(crc32(0, nullptr, 0), bytes, uInt(entry.bytes.size()))));
        Put(facts, quint32(content.size()));
        Put(facts, quint32(entry.bytes.size()));
        Put(facts, quint16(name.size()));
        Put(facts, quint16(0)); // nothing more
        return facts;
    }

    void NoteEntry(const QByteArray &name, const QByteArray &facts) {
        if (++count_ > kMostEntries) Raise(QStringLiteral("The archive has too many entries."));
        Put(directory_, kCentral);
        Put(directory_, kVersion); // that made it
        directory_ += facts;
        Put(directory_, quint32(0)); // no comment, the first disk
        Put(directory_, quint16(0)); // bytes, not text
        Put(directory_, quint32(0)); // no attributes
        Put(directory_, quint32(file_.size()));
        directory_ += name;
    }

    QByteArray file_, directory_;
    qsizetype count_ = 0;
};

} // namespace

QByteArray ZipFile(const std::vector<ZipEntry> &entries) {
    Archive archive;
    QSet<QString> names;
    for (const ZipEntry &entry : entries) {
        if (names.contains(entry.name)) Raise(QStringLiteral("%1 stands twice.").arg(entry.name));
        names.insert(entry.name);
        archive.Add(entry);
    }
    return archive.Bytes();
}

} // namespace package
