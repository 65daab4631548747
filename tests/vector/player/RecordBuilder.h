// Metafiles record by record.
#pragma once

#include "vector/player/EmfRecords.h"
#include "vector/player/MetafileValues.h"
#include "vector/player/WmfRecords.h"

#include <initializer_list>
#include <QByteArray>
#include <QtEndian>

namespace vector::testing {

template <typename T>
inline void Append(QByteArray &bytes, T value) {
    char raw[sizeof(T)];
    qToLittleEndian(value, raw);
    bytes.append(raw, sizeof raw);
}

// 100 units a side, each a pixel of 96 an inch.
class WmfBuilder {
public:
    WmfBuilder &Add(wmf::Function function, std::initializer_list<int> words, const QByteArray &tail = {}) {
        Append(records_, quint32(3 + words.size() + std::size_t(tail.size()) / 2));
        Append(records_, quint16(function));
        for (const int word : words) Append(records_, quint16(word));
        records_ += tail;
        return *this;
    }
    QByteArray File() const {
        QByteArray file;
        Append(file, wmf::kPlaceableKey);
        for (const int word : {0, 0, 0, 100, 100, 96, 0, 0, 0}) Append(file, quint16(word));
        return file + Plain();
    }
    QByteArray Plain() const {
        QByteArray file;
        for (const int word : {1, 9, 0x300, 0, 0, 16, 0, 0, 0}) Append(file, quint16(word));
        QByteArray end;
        Append(end, quint32(3));
        Append(end, quint16(0));
        return file + records_ + end;
    }

private:
    QByteArray records_;
};

class EmfBuilder {
public:
    EmfBuilder &Add(quint32 type, std::initializer_list<int> numbers, const QByteArray &tail = {}) {
        Append(records_, type);
        Append(records_, quint32(8 + numbers.size() * 4 + std::size_t(tail.size())));
        for (const int number : numbers) Append(records_, qint32(number));
        records_ += tail;
        return *this;
    }
    QByteArray File() const {
        constexpr int kHundredths = 2646; // of a millimetre: 100 pixels of 96 an inch
        QByteArray file;
        for (const int number :
             {1,       100, 0, 0,  100, 100, 0, 0,    kHundredths, kHundredths, int(emf::kSignature),
              0x10000, 0,   0, 16, 0,   0,   0, 9600, 9600,        2540,        2540,
              0,       0,   0})
            Append(file, qint32(number));
        QByteArray end;
        for (const int number : {14, 20, 0, 16, 20}) Append(end, qint32(number));
        return file + records_ + end;
    }

private:
    QByteArray records_;
};

} // namespace vector::testing
