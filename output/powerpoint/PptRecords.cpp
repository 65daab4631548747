#include "output/powerpoint/PptRecords.h"

#include <vector>

namespace powerpoint::binary {

QByteArray Record(Type type, int version, int instance, const QByteArray &content) {
    return Values().U16(version | instance << 4).U16(type).U32(content.size()).Bytes(content);
}

namespace {

constexpr int kShort = 2, kText = 30, kTime = 64; // kinds of properties
constexpr int kCodePage = 1, kTitle = 2, kComments = 6, kMade = 12, kSaved = 13;
constexpr int kUtf8 = 65001;

QByteArray TextValue(const QString &text) {
    QByteArray utf8 = text.toUtf8().replace('\0', ' ');
    utf8.append('\0');
    QByteArray value = Values().U32(kText).U32(utf8.size()).Bytes(utf8);
    while (value.size() % 4) value.append('\0');
    return value;
}

QByteArray TimeValue(qint64 msecsSinceEpoch) {
    constexpr qint64 kFrom1601 = 11644473600000; // milliseconds, to 1970
    constexpr qint64 kTicks = 10000;             // of a millisecond
    return Values().U32(kTime).Put(quint64((msecsSinceEpoch + kFrom1601) * kTicks));
}

struct Property {
    int id;
    QByteArray value;
};

QByteArray PropertySet(const std::vector<Property> &properties) {
    const auto head = 8 + 8 * qsizetype(properties.size());
    Values index, values;
    qsizetype at = head;
    for (const Property &property : properties) {
        index.U32(property.id).U32(at);
        values.Bytes(property.value);
        at += property.value.size();
    }
    return Values().U32(at).U32(qint64(properties.size())).Bytes(index).Bytes(values);
}

} // namespace

QByteArray SummaryInformation(const QString &title, const QString &comments, qint64 msecsSinceEpoch) {
    constexpr char kKind[] = "\xE0\x85\x9F\xF2\xF9\x4F\x68\x10\xAB\x91\x08\x00\x2B\x27\xB3\xD9";
    constexpr int kSystem = 0x20105, kHead = 48;
    const QByteArray set = PropertySet({{kCodePage, Values().U32(kShort).U32(kUtf8)},
                                        {kTitle, TextValue(title)},
                                        {kComments, TextValue(comments)},
                                        {kMade, TimeValue(msecsSinceEpoch)},
                                        {kSaved, TimeValue(msecsSinceEpoch)}});
    return Values()
        .U16(0xFFFE)
        .U16(0)
        .U32(kSystem)
        .Bytes(QByteArray(16, 0))
        .U32(1)
        .Bytes(QByteArray(kKind, 16))
        .U32(kHead)
        .Bytes(set);
}

} // namespace powerpoint::binary
