// Reads what ValueWriter writes. Everything is checked: error 321 for a value out of its range, a property
// that isn't there, or bytes that end too early.
#pragma once

#include "diagram/format/Bytes.h"
#include "diagram/model/Properties.h"

#include <map>

namespace diagram {

constexpr StackKey kHighestStack = StackKey(1) << 60; // beyond which no item of a file is stacked

class ValueReader {
public:
    // Reads these bytes from now on. The lists of fonts and pictures stay.
    void SetBody(QByteArrayView body) { body_ = ByteReader(body); }
    ByteReader &Body() { return body_; }

    // Read fonts, and pictures, to which the values refer by positions from `first` on.
    void ReadFonts(std::uint32_t first = 0) {
        constexpr qsizetype kSmallest = 4 + 8 + 1;
        for (qsizetype left = body_.GetCount(kSmallest); left > 0; --left) {
            const QString name = body_.GetText();
            const double size = body_.Get<double>();
            const auto flags = body_.Get<std::uint8_t>();
            fonts_.insert_or_assign(first++, Font(name, size, flags & 1, flags & 2, flags & 4, flags & 8));
        }
    }
    void ReadPictures(std::uint32_t first = 0) {
        for (qsizetype left = body_.GetCount(4); left > 0; --left)
            pictures_.insert_or_assign(first++, Picture::FromBytes(body_.GetBlock()));
    }
    // While on, a value that refers to a font or picture which was never read gets the default one; otherwise
    // that is an error.
    void SetForgiving(bool on) { forgiving_ = on; }

    template <typename Data, typename Filter>
    void GetValues(Data &data, Filter isStored) {
        const auto rows = PropertiesOf(data);
        for (int left = body_.Get<std::uint8_t>(); left > 0; --left) {
            const auto id = body_.Get<std::uint8_t>(); // of a row, counted from 1
            if (id == 0 || id > rows.size() || !isStored(rows[id - 1u])) RaiseInvalidFormat();
            PropertyValue value = rows[id - 1u].get(data);
            std::visit([this](auto &each) { this->GetValue(each); }, value);
            rows[id - 1u].set(data, value);
        }
        if (!IsValid(data)) RaiseInvalidFormat();
    }
    template <typename Data>
    void GetValues(Data &data) {
        GetValues(data, [](const auto &) { return true; });
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

private:
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
    void GetValue(std::shared_ptr<const NodeLook> &value) {
        auto defaults = std::make_shared<NodeLook>();
        GetValues(*defaults);
        value = std::move(defaults);
    }

    template <typename T>
    T At(const std::map<std::uint32_t, T> &list) {
        const auto found = list.find(body_.Get<std::uint32_t>());
        if (found != list.end()) return found->second;
        if (!forgiving_) RaiseInvalidFormat();
        return T();
    }

    ByteReader body_{QByteArrayView()};
    std::map<std::uint32_t, Font> fonts_;
    std::map<std::uint32_t, Picture> pictures_;
    bool forgiving_ = false;
};

} // namespace diagram
