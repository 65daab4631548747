#include "storage/jet/Values.h"

#include "storage/jet/Failure.h"
#include "storage/text/DateText.h"

#include <cmath>
#include <QtEndian>
#include <QUuid>

namespace storage::jet {

namespace {

void Need(const QByteArray &bytes, qsizetype size) {
    if (bytes.size() < size) throw Damaged("a value is cut off");
}

QString Expand(const QByteArray &compressed) {
    QString text;
    bool isWide = false;
    for (qsizetype at = 2; at < compressed.size();) {
        if (compressed[at] == 0) {
            isWide = !isWide;
            ++at;
        } else if (!isWide) {
            text += QChar(static_cast<uchar>(compressed[at++]));
        } else {
            Need(compressed, at + 2);
            text += QChar(qFromLittleEndian<quint16>(compressed.constData() + at));
            at += 2;
        }
    }
    return text;
}

} // namespace

QString DecodeUnicode(const QByteArray &bytes) {
    if (bytes.startsWith("\xFF\xFE")) return Expand(bytes);
    if (bytes.size() % 2 != 0) throw Damaged("a text ends in the middle of a character");
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.constData(), text.size(), text.data());
    return text;
}

std::int64_t DecodeWhole(const QByteArray &bytes) {
    switch (bytes.size()) {
    case 1:
        return static_cast<uchar>(bytes[0]);
    case 2:
        return qFromLittleEndian<qint16>(bytes.constData());
    case 4:
        return qFromLittleEndian<qint32>(bytes.constData());
    case 8:
        return qFromLittleEndian<qint64>(bytes.constData());
    default:
        throw Damaged("a number has an impossible size");
    }
}

float DecodeSingle(const QByteArray &bytes) {
    Need(bytes, 4);
    return qFromLittleEndian<float>(bytes.constData());
}

double DecodeDouble(const QByteArray &bytes) {
    Need(bytes, 8);
    return qFromLittleEndian<double>(bytes.constData());
}

double DecodeMoney(const QByteArray &bytes) {
    constexpr double kParts = 10000;
    Need(bytes, 8);
    return static_cast<double>(qFromLittleEndian<qint64>(bytes.constData())) / kParts;
}

double DecodeNumeric(const QByteArray &bytes, int scale) {
    constexpr int kWords = 4;
    constexpr double kWord = 4294967296.0;
    constexpr int kMostScale = 28;
    Need(bytes, 17);
    if (scale < 0 || scale > kMostScale) throw Damaged("a number has impossible decimal places");
    double number = 0;
    for (qsizetype i = 0; i < kWords; ++i)
        number = number * kWord + qFromLittleEndian<quint32>(bytes.constData() + 1 + i * 4);
    number /= std::pow(10.0, scale);
    return bytes[0] & 0x80 ? -number : number;
}

QString DecodeDate(const QByteArray &bytes) {
    const QString date = DateTextOfSerial(DecodeDouble(bytes));
    if (date.isEmpty()) throw Damaged("a date is out of range");
    return date;
}

QString DecodeGuid(const QByteArray &bytes) {
    Need(bytes, 16);
    const QByteArray swapped = QByteArray(bytes.constData() + 3, 1) + bytes[2] + bytes[1] + bytes[0] +
                               bytes[5] + bytes[4] + bytes[7] + bytes[6] + bytes.mid(8, 8);
    return QUuid::fromRfc4122(swapped).toString().toUpper();
}

} // namespace storage::jet
