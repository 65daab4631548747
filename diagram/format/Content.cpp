// The form: name, version (16 bits), check sum (8 bytes), then the body: kind, fonts, pictures, the surface's
// values, nodes, links. The values of an item are a count and, for each that isn't the default, the number of
// its property and the value. Fonts and pictures stand once and are referred to by position.
#include "diagram/format/Content.h"

#include "diagram/format/Bytes.h"
#include "diagram/model/Properties.h"
#include "support/Error.h"

#include <QCryptographicHash>
#include <QHash>
#include <QSet>
#include <unordered_map>

namespace diagram {

namespace {

constexpr char kName[] = "VelmoraSurface";
constexpr qsizetype kNameSize = sizeof kName - 1;
constexpr std::uint16_t kVersion = 1;
constexpr qsizetype kSumSize = 8;
constexpr StackKey kHighestStack = StackKey(1) << 60;

QByteArray SumOf(QByteArrayView body) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(body.toByteArray());
    return hash.result().first(kSumSize);
}

// The surface's picture and back colour are no part of its file.
bool IsStored(const SurfaceData &, const PropertyRow<SurfaceData> &row) { return row.id != 2 && row.id != 3; }
template <typename Data>
bool IsStored(const Data &, const PropertyRow<Data> &) {
    return true;
}

struct FontHash {
    std::size_t operator()(const Font &font) const { return font.Hash(); }
};

class Encoder {
public:
    template <typename Data>
    void PutValues(const Data &data) {
        const Data plain{};
        std::uint8_t count = 0;
        for (const auto &row : PropertiesOf(data)) count += IsStored(data, row) && !row.same(data, plain);
        body_.Put(count);
        for (const auto &row : PropertiesOf(data)) {
            if (!IsStored(data, row) || row.same(data, plain)) continue;
            body_.Put(row.id);
            const PropertyValue value = row.get(data);
            std::visit([this](const auto &each) { PutValue(each); }, value);
        }
    }

    template <typename Item>
    void PutItems(const std::vector<Item> &items) {
        body_.PutCount(qsizetype(items.size()));
        for (const Item &item : items) {
            body_.Put(item.id);
            PutValues(item.data);
        }
    }

    QByteArray Finish(ContentKind kind) const {
        ByteWriter whole;
        whole.Put(std::uint8_t(kind));
        whole.PutCount(qsizetype(fonts_.size()));
        for (const Font &font : fonts_) {
            whole.PutText(font.Name());
            whole.Put(font.Size());
            whole.Put(
                std::uint8_t(font.Bold() | font.Italic() << 1 | font.Underline() << 2 | font.Strike() << 3));
        }
        whole.PutCount(qsizetype(pictures_.size()));
        for (const Picture &picture : pictures_) whole.PutBlock(picture.Bytes());
        return whole.Bytes() + body_.Bytes();
    }

private:
    void PutValue(bool value) { body_.Put(std::uint8_t(value)); }
    template <typename T>
    void PutValue(const T &value) requires std::is_arithmetic_v<T> {
        body_.Put(value);
    }
    void PutValue(const QString &value) { body_.PutText(value); }
    void PutValue(const Font &value) {
        const auto [at, isNew] = fontPlaces_.try_emplace(value, std::uint32_t(fonts_.size()));
        if (isNew) fonts_.push_back(value);
        body_.Put(at->second);
    }
    void PutValue(const Picture &value) {
        auto at = picturePlaces_.constFind(value.Bytes());
        if (at == picturePlaces_.cend()) {
            at = picturePlaces_.insert(value.Bytes(), std::uint32_t(pictures_.size()));
            pictures_.push_back(value);
        }
        body_.Put(at.value());
    }
    void PutValue(const std::vector<Point> &value) {
        body_.PutCount(qsizetype(value.size()));
        for (const Point &point : value) body_.Put(point.x), body_.Put(point.y);
    }
    void PutValue(const std::shared_ptr<const NodeDefaults> &value) { PutValues(*value); }

    ByteWriter body_;
    std::vector<Font> fonts_;
    std::vector<Picture> pictures_;
    std::unordered_map<Font, std::uint32_t, FontHash> fontPlaces_;
    QHash<QByteArray, std::uint32_t> picturePlaces_;
};

class Decoder {
public:
    explicit Decoder(QByteArrayView body) : body_(body) {}

    Content Read(ContentKind kind) {
        Content content;
        content.kind = kind;
        if (body_.Get<std::uint8_t>() != std::uint8_t(kind)) RaiseInvalidFormat();
        ReadFonts();
        ReadPictures();
        if (kind == ContentKind::Surface) GetValues(content.surface);
        GetItems(content.nodes);
        GetItems(content.links);
        if (!body_.AtEnd()) RaiseInvalidFormat();
        return content;
    }

private:
    void ReadFonts() {
        constexpr qsizetype kSmallest = 4 + 8 + 1;
        fonts_.reserve(std::size_t(body_.GetCount(kSmallest)));
        for (auto left = fonts_.capacity(); left > 0; --left) {
            const QString name = body_.GetText();
            const double size = body_.Get<double>();
            const auto flags = body_.Get<std::uint8_t>();
            fonts_.emplace_back(name, size, flags & 1, flags & 2, flags & 4, flags & 8);
        }
    }

    void ReadPictures() {
        for (qsizetype left = body_.GetCount(4); left > 0; --left)
            pictures_.push_back(Picture::FromBytes(body_.GetBlock()));
    }

    template <typename Data>
    void GetValues(Data &data) {
        const auto rows = PropertiesOf(data);
        for (int left = body_.Get<std::uint8_t>(); left > 0; --left) {
            const auto id = body_.Get<std::uint8_t>(); // of a row, counted from 1
            if (id == 0 || id > rows.size() || !IsStored(data, rows[id - 1u])) RaiseInvalidFormat();
            PropertyValue value = rows[id - 1u].get(data);
            std::visit([this](auto &each) { GetValue(each); }, value);
            rows[id - 1u].set(data, value);
        }
        if (!IsValid(data)) RaiseInvalidFormat();
    }

    template <typename Item>
    void GetItems(std::vector<Item> &items) {
        constexpr qsizetype kSmallest = 4 + 1;
        const qsizetype count = body_.GetCount(kSmallest);
        for (qsizetype i = 0; i < count; ++i) {
            Item &item = items.emplace_back();
            item.id = body_.Get<ItemId>();
            GetValues(item.data);
            if (item.data.stack > kHighestStack || item.data.stack < -kHighestStack) RaiseInvalidFormat();
        }
    }

    void GetValue(bool &value) { value = body_.GetBool(); }
    template <typename T>
    void GetValue(T &value) requires std::is_arithmetic_v<T> {
        value = body_.Get<T>();
    }
    void GetValue(QString &value) { value = body_.GetText(); }
    void GetValue(Font &value) { value = At(fonts_); }
    void GetValue(Picture &value) { value = At(pictures_); }
    void GetValue(std::vector<Point> &value) {
        value.resize(std::size_t(body_.GetCount(8)));
        for (Point &point : value) point.x = body_.Get<float>(), point.y = body_.Get<float>();
    }
    void GetValue(std::shared_ptr<const NodeDefaults> &value) {
        auto defaults = std::make_shared<NodeDefaults>();
        GetValues(*defaults);
        value = std::move(defaults);
    }

    template <typename T>
    const T &At(const std::vector<T> &pool) {
        const auto position = body_.Get<std::uint32_t>();
        if (position >= pool.size()) RaiseInvalidFormat();
        return pool[position];
    }

    ByteReader body_;
    std::vector<Font> fonts_;
    std::vector<Picture> pictures_;
};

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

QByteArray Encode(const Content &content) {
    Encoder encoder;
    if (content.kind == ContentKind::Surface) encoder.PutValues(content.surface);
    encoder.PutItems(content.nodes);
    encoder.PutItems(content.links);
    return Seal(encoder.Finish(content.kind));
}

QByteArray Seal(const QByteArray &body) {
    ByteWriter head;
    head.Put(kVersion);
    return QByteArray(kName, kNameSize) + head.Bytes() + SumOf(body) + body;
}

qsizetype SealSize() { return kNameSize + qsizetype(sizeof kVersion) + kSumSize; }

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
        Content content = Decoder(body).Read(kind);
        CheckWhole(content);
        return content;
    } catch (const support::Error &) {
        // Whatever is wrong with a font, a picture or a value: the file is.
        RaiseInvalidFormat();
    }
}

} // namespace diagram
