// The form: name, version (16 bits), check sum (8 bytes), then the body: kind, fonts, pictures, the surface's
// values, nodes, links. The values of an item are a count and, for each that isn't the default, the number of
// its property and the value. Fonts and pictures stand once and are referred to by position.
#include "diagram/format/Content.h"

#include "diagram/format/Bytes.h"
#include "diagram/format/ValueReader.h"
#include "diagram/format/ValueWriter.h"
#include "diagram/model/PropertyTable.h"
#include "support/Error.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QSet>

namespace diagram {

namespace {

constexpr char kName[] = "VelmoraSurface";
constexpr qsizetype kNameSize = sizeof kName - 1;
constexpr std::uint16_t kVersion = 1;
constexpr qsizetype kSumSize = 8;

QByteArray SumOf(QByteArrayView body) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(body.toByteArray());
    return hash.result().first(kSumSize);
}

QByteArray BodyOf(const Content &content) {
    ValueWriter writer;
    if (content.kind == ContentKind::Surface) writer.PutValues(content.surface, IsStored);
    writer.PutItems(content.nodes);
    writer.PutItems(content.links);
    ByteWriter whole;
    whole.Put(std::uint8_t(content.kind));
    writer.PutFonts(whole, 0);
    writer.PutPictures(whole, 0);
    return whole.Bytes() + writer.TakeBody();
}

Content ReadBody(QByteArrayView body, ContentKind kind) {
    Content content;
    content.kind = kind;
    ValueReader reader;
    reader.SetBody(body);
    if (reader.Body().Get<std::uint8_t>() != std::uint8_t(kind)) RaiseInvalidFormat();
    reader.ReadFonts();
    reader.ReadPictures();
    if (kind == ContentKind::Surface) reader.GetValues(content.surface, IsStored);
    reader.GetItems(content.nodes);
    reader.GetItems(content.links);
    if (!reader.Body().AtEnd()) RaiseInvalidFormat();
    return content;
}

template <typename Item>
bool IdsAscend(const std::vector<Item> &items) {
    ItemId last = kNoItem;
    for (const Item &item : items) {
        if (item.id <= std::exchange(last, item.id)) return false;
    }
    return true;
}

void CheckWhole(const Content &content) {
    if (!IdsAscend(content.nodes) || !IdsAscend(content.links)) RaiseInvalidFormat();
    QSet<ItemId> nodes;
    QSet<QString> keys;
    for (const StoredNode &node : content.nodes) {
        nodes.insert(node.id);
        if (node.data.key.isEmpty()) continue;
        if (keys.contains(node.data.key)) RaiseInvalidFormat();
        keys.insert(node.data.key);
    }
    for (const StoredLink &link : content.links) {
        if (nodes.contains(link.id) || link.data.points.size() == 1) RaiseInvalidFormat();
        if (!nodes.contains(link.data.source) || !nodes.contains(link.data.destination)) RaiseInvalidFormat();
    }
}

} // namespace

void RaiseInvalidFormat() {
    throw support::Error(kErrInvalidFileFormat, QStringLiteral("Surface"),
                         QStringLiteral("Invalid file format"));
}

QByteArray Encode(const Content &content) { return Seal(BodyOf(content)); }

QByteArray Seal(const QByteArray &body) {
    ByteWriter head;
    head.Put(kVersion);
    return QByteArray(kName, kNameSize) + head.Bytes() + SumOf(body) + body;
}

qsizetype SealSize() { return kNameSize + qsizetype(sizeof kVersion) + kSumSize; }

bool IsStored(const PropertyRow<SurfaceData> &row) {
    constexpr std::uint8_t kNotStored[] = {
        PropertyOf<&SurfaceData::picture>().id, PropertyOf<&SurfaceData::backColor>().id,
        PropertyOf<&SurfaceData::grownLeft>().id, PropertyOf<&SurfaceData::grownTop>().id};
    return std::ranges::find(kNotStored, row.id) == std::end(kNotStored);
}

Content Decode(QByteArrayView bytes, ContentKind kind) {
    ByteReader head(bytes);
    if (head.Take(kNameSize) != QByteArrayView(kName, kNameSize)) RaiseInvalidFormat();
    if (head.Get<std::uint16_t>() != kVersion) RaiseInvalidFormat();
    const QByteArrayView sum = head.Take(kSumSize), body = bytes.sliced(SealSize());
    if (sum != SumOf(body)) RaiseInvalidFormat();
    return DecodeBody(body, kind);
}

Content DecodeBody(QByteArrayView body, ContentKind kind) {
    try {
        Content content = ReadBody(body, kind);
        CheckWhole(content);
        return content;
    } catch (const support::Error &) {
        // Whatever is wrong, with a font, a picture or a value, is an error of the file.
        RaiseInvalidFormat();
    }
}

} // namespace diagram
