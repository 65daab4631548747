#include "storage/jet/JetFile.h"

#include "storage/jet/Failure.h"
#include "storage/jet/Page.h"
#include "storage/jet/Values.h"
#include "support/Windows1252.h"

#include <QFile>
#include <QtEndian>
#include <set>

namespace storage::jet {

namespace {

constexpr std::uint32_t kCatalogPage = 2;
const QString kCatalog = QStringLiteral("MSysObjects");

MdbHandle *OpenHandle(const QString &path) {
    MdbHandle *handle = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (!handle) throw NotRecognised("no Jet file");
    return handle;
}

int ColumnOf(const JetTable &table, const char *name, int type) {
    const int column = table.Find(name);
    if (column < 0 || table.Columns()[column]->col_type != type)
        throw Damaged("the catalog has no usable columns");
    return column;
}

const QByteArray &Cell(const RawRow &row, int column) {
    if (!row[column]) throw Damaged("the catalog has an empty cell");
    return *row[column];
}

bool IsUserTable(std::int64_t type, std::int64_t flags, const QString &name) {
    constexpr std::int64_t kSystemFlags = 0x80000002;
    constexpr std::int64_t kTypeMask = 0x7F;
    return (type & kTypeMask) == MDB_TABLE && (flags & kSystemFlags) == 0 &&
           !name.startsWith(QLatin1Char('~')) && !name.startsWith(QLatin1String("MSys"), Qt::CaseInsensitive);
}

} // namespace

JetFile::JetFile(const QString &path, Reading reading) : handle_(OpenHandle(path)) {
    const int version = static_cast<int>(handle_->f->jet_version);
    if (version != MDB_VER_JET3 && version != MDB_VER_JET4)
        throw NotRecognised("a Jet file of another version");
    const qint64 size = QFile(path).size();
    if (reading == Reading::Whole && (size == 0 || size % handle_->fmt->pg_size != 0))
        throw Damaged("the file ends in the middle of a page");
    longBytesLeft_ = size;
    pages_ = static_cast<std::uint32_t>(size / handle_->fmt->pg_size);
}

bool JetFile::IsJet3() const { return handle_->f->jet_version == MDB_VER_JET3; }

std::optional<JetFile::NamedPage> JetFile::UserTableOf(const JetTable &catalog, const RawRow &row) const {
    constexpr std::int64_t kPageMask = 0x00FFFFFF;
    const int id = ColumnOf(catalog, "Id", MDB_LONGINT);
    const int type = ColumnOf(catalog, "Type", MDB_INT);
    const int flags = ColumnOf(catalog, "Flags", MDB_LONGINT);
    const QString name = Text(Cell(row, ColumnOf(catalog, "Name", MDB_TEXT)));
    if (!IsUserTable(DecodeWhole(Cell(row, type)), row[flags] ? DecodeWhole(*row[flags]) : 0, name))
        return std::nullopt;
    return NamedPage(name, static_cast<std::uint32_t>(DecodeWhole(Cell(row, id)) & kPageMask));
}

std::vector<JetTable> JetFile::UserTables() {
    JetTable catalog(*this, kCatalog, kCatalogPage);
    std::vector<NamedPage> found;
    catalog.ForEachRow([&](const RawRow &row) {
        if (const auto table = UserTableOf(catalog, row)) found.push_back(*table);
    });
    std::vector<JetTable> tables;
    for (const auto &[text, page] : found) tables.emplace_back(*this, text, page);
    return tables;
}

std::vector<JetTable> JetFile::ReadableTables(QStringList &lost) {
    JetTable catalog(*this, kCatalog, kCatalogPage);
    std::vector<NamedPage> found;
    catalog.ForEachReadableRow([&](const RawRow &row) {
        if (const auto table = UserTableOf(catalog, row)) found.push_back(*table);
    });
    std::vector<JetTable> tables;
    for (const auto &[text, page] : found) {
        try {
            tables.emplace_back(*this, text, page);
        } catch (const Damaged &) {
            lost.append(text);
        }
    }
    return tables;
}

QString JetFile::Text(const QByteArray &bytes) const {
    constexpr int kWestern = 1252;
    if (!IsJet3()) return DecodeUnicode(bytes);
    const int page = handle_->f->code_page;
    if (page == kWestern || page == 0) return support::FromWindows1252(bytes);
    constexpr int kMostBytesACharacter = 4;
    QByteArray utf8(bytes.size() * kMostBytesACharacter + 1, '\0');
    const int size =
        mdb_unicode2ascii(handle_.get(), bytes.constData(), bytes.size(), utf8.data(), utf8.size());
    return QString::fromUtf8(utf8.constData(), size);
}

QByteArray JetFile::LongPiece(std::uint32_t pointer) {
    const OtherPage page(handle_.get(), pointer);
    const auto *bytes = reinterpret_cast<const char *>(handle_->pg_buf);
    if (bytes[0] != MDB_PAGE_DATA || qstrncmp(bytes + kOwnerAt, "LVAL", 4) != 0)
        throw Damaged("a long value is not where it should be");
    const Place place = page.Row();
    CheckPlace(handle_.get(), place);
    return QByteArray(bytes + place.start, place.size);
}

// Each piece begins with the pointer to the next one.
QByteArray JetFile::LongChain(std::uint32_t pointer, qint64 length) {
    constexpr int kPointer = 4;
    QByteArray value;
    std::set<std::uint32_t> seen;
    while (value.size() < length) {
        if (!seen.insert(pointer).second) throw Damaged("a long value runs in a circle");
        const QByteArray piece = LongPiece(pointer);
        if (piece.size() <= kPointer) throw Damaged("a long value is cut off");
        value += piece.mid(kPointer, length - value.size());
        pointer = qFromLittleEndian<quint32>(piece.constData());
    }
    return value;
}

QByteArray JetFile::LongValue(const QByteArray &inRow) {
    constexpr quint32 kInRow = 0x80000000;
    constexpr quint32 kOnePiece = 0x40000000;
    constexpr int kHead = 12;
    constexpr int kPointerAt = 4;
    if (inRow.isEmpty()) return {};
    if (inRow.size() < kHead) throw Damaged("a long value is cut off");
    const quint32 form = qFromLittleEndian<quint32>(inRow.constData());
    const quint32 pointer = qFromLittleEndian<quint32>(inRow.constData() + kPointerAt);
    const qint64 length = form & ~(kInRow | kOnePiece);
    if (length > longBytesLeft_) throw Damaged("the long values are longer than the file");
    const QByteArray value = form & kInRow      ? inRow.mid(kHead, length)
                             : form & kOnePiece ? LongPiece(pointer).left(length)
                                                : LongChain(pointer, length);
    if (value.size() != length) throw Damaged("a long value is cut off");
    longBytesLeft_ -= length;
    return value;
}

} // namespace storage::jet
