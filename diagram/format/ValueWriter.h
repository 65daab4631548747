// Writes the values of items property by property: a count and, for each that isn't the default, the number
// of its property and the value. Fonts and pictures stand once in lists of their own and are referred to by
// position.
#pragma once

#include "diagram/format/Bytes.h"
#include "diagram/model/Properties.h"

#include <unordered_map>

namespace diagram {

class ValueWriter {
public:
    // The values of those properties for which `isStored(row)` holds.
    template <typename Data, typename Filter>
    void PutValues(const Data &data, Filter isStored) {
        const Data plain{};
        const auto counts = [&](const auto &row) { return isStored(row) && !row.same(data, plain); };
        std::uint8_t count = 0;
        for (const auto &row : PropertiesOf(data)) count += counts(row);
        body_.Put(count);
        for (const auto &row : PropertiesOf(data)) {
            if (!counts(row)) continue;
            body_.Put(row.id);
            const PropertyValue value = row.get(data);
            std::visit([this](const auto &each) { this->PutValue(each); }, value);
        }
    }
    template <typename Data>
    void PutValues(const Data &data) {
        PutValues(data, [](const auto &) { return true; });
    }

    template <typename Item>
    void PutItems(const std::vector<Item> &items) {
        body_.PutCount(qsizetype(items.size()));
        for (const Item &item : items) {
            body_.Put(item.id);
            PutValues(item.data);
        }
    }

    ByteWriter &Body() { return body_; }
    // The body written so far; a new one begins. The lists stay.
    QByteArray TakeBody() { return std::exchange(body_, {}).Bytes(); }

    // How many fonts and pictures there are.
    std::uint32_t FontCount() const { return std::uint32_t(fonts_.size()); }
    std::uint32_t PictureCount() const { return std::uint32_t(pictures_.size()); }
    // Write the lists from a position on.
    void PutFonts(ByteWriter &out, std::uint32_t from) const {
        out.PutCount(qsizetype(fonts_.size() - from));
        for (std::size_t i = from; i < fonts_.size(); ++i) {
            const Font &font = fonts_[i];
            out.PutText(font.Name());
            out.Put(font.Size());
            out.Put(
                std::uint8_t(font.Bold() | font.Italic() << 1 | font.Underline() << 2 | font.Strike() << 3));
        }
    }
    void PutPictures(ByteWriter &out, std::uint32_t from) const {
        out.PutCount(qsizetype(pictures_.size() - from));
        for (std::size_t i = from; i < pictures_.size(); ++i) out.PutBlock(pictures_[i].Bytes());
    }

private:
    struct FontHash {
        std::size_t operator()(const Font &font) const { return font.Hash(); }
    };

    void PutValue(bool value) { body_.Put(std::uint8_t(value)); }
    template <typename T>
    void PutValue(const T &value) requires std::is_arithmetic_v<T> {
        body_.Put(value);
    }
    void PutValue(const QString &value) { body_.PutText(value); }
    void PutValue(const Font &value) {
        const auto [at, isNew] = fontPlaces_.try_emplace(value, FontCount());
        if (isNew) fonts_.push_back(value);
        body_.Put(at->second);
    }
    void PutValue(const Picture &value) {
        auto at = picturePlaces_.constFind(value.Bytes());
        if (at == picturePlaces_.cend()) {
            at = picturePlaces_.insert(value.Bytes(), PictureCount());
            pictures_.push_back(value);
        }
        body_.Put(at.value());
    }
    void PutValue(const std::vector<Point> &value) {
        body_.PutCount(qsizetype(value.size()));
        for (const Point &point : value) body_.Put(point.x), body_.Put(point.y);
    }
    void PutValue(const std::shared_ptr<const NodeLook> &value) { PutValues(*value); }

    ByteWriter body_;
    std::vector<Font> fonts_;
    std::vector<Picture> pictures_;
    std::unordered_map<Font, std::uint32_t, FontHash> fontPlaces_;
    QHash<QByteArray, std::uint32_t> picturePlaces_;
};

} // namespace diagram
