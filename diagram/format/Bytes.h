// Little-endian bytes, written and read; reading checks every length against what is left.
#pragma once

#include <bit>
#include <cstdint>
#include <QByteArray>
#include <QString>
#include <QtEndian>

namespace diagram {

constexpr long kErrInvalidFileFormat = 321;
// Error 321 "Invalid file format".
[[noreturn]] void RaiseInvalidFormat();

class ByteWriter {
public:
    template <typename T>
    void Put(T value) {
        if constexpr (std::is_same_v<T, float>) {
            Put(std::bit_cast<std::uint32_t>(value));
        } else if constexpr (std::is_same_v<T, double>) {
            Put(std::bit_cast<std::uint64_t>(value));
        } else {
            const T ordered = qToLittleEndian(value);
            bytes_.append(reinterpret_cast<const char *>(&ordered), sizeof ordered);
        }
    }
    void PutCount(qsizetype count) { Put(std::uint32_t(count)); }
    void PutBlock(const QByteArray &block) {
        PutCount(block.size());
        bytes_.append(block);
    }
    // As UTF-16, so that any text comes back letter for letter.
    void PutText(const QString &text) {
        PutCount(text.size());
        for (const QChar letter : text) Put(std::uint16_t(letter.unicode()));
    }
    const QByteArray &Bytes() const { return bytes_; }

private:
    QByteArray bytes_;
};

class ByteReader {
public:
    explicit ByteReader(QByteArrayView bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.isEmpty(); }

    QByteArrayView Take(qsizetype size) {
        if (size > rest_.size()) RaiseInvalidFormat();
        const QByteArrayView taken = rest_.first(size);
        rest_ = rest_.sliced(size);
        return taken;
    }
    template <typename T>
    T Get() {
        if constexpr (std::is_same_v<T, float>) {
            return std::bit_cast<float>(Get<std::uint32_t>());
        } else if constexpr (std::is_same_v<T, double>) {
            return std::bit_cast<double>(Get<std::uint64_t>());
        } else {
            return qFromLittleEndian<T>(Take(sizeof(T)).data());
        }
    }
    bool GetBool() {
        const auto value = Get<std::uint8_t>();
        if (value > 1) RaiseInvalidFormat();
        return value == 1;
    }
    // A number of things of which each takes at least `smallest` bytes.
    qsizetype GetCount(qsizetype smallest) {
        const qsizetype count = Get<std::uint32_t>();
        if (count > rest_.size() / smallest) RaiseInvalidFormat();
        return count;
    }
    QByteArray GetBlock() { return Take(GetCount(1)).toByteArray(); }
    QString GetText() {
        QString text(GetCount(2), Qt::Uninitialized);
        for (QChar &letter : text) letter = QChar(Get<std::uint16_t>());
        return text;
    }

private:
    QByteArrayView rest_;
};

} // namespace diagram
