// Records of the binary form ([MS-PPT] 2.3.1, [MS-ODRAW] 2.2.1): a head of eight bytes, then values or
// further records.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtEndian>

namespace powerpoint::binary {

// Values one behind the other, the lowest byte first.
class Values {
public:
    template <typename T>
    Values &Put(T value) {
        char raw[sizeof(T)];
        qToLittleEndian(value, raw);
        bytes_.append(raw, sizeof raw);
        return *this;
    }
    Values &U8(int value) { return Put(quint8(value)); }
    Values &U16(int value) { return Put(quint16(value)); }
    Values &U32(qint64 value) { return Put(quint32(value)); }
    Values &Bytes(const QByteArray &bytes) {
        bytes_.append(bytes);
        return *this;
    }
    // Two bytes a character, without an end.
    Values &Text(const QString &text) {
        for (const QChar character : text) U16(character.unicode());
        return *this;
    }
    operator const QByteArray &() const { return bytes_; }

private:
    QByteArray bytes_;
};

enum Type : int {
    kDocument = 0x3E8,
    kDocumentAtom = 0x3E9,
    kEndDocument = 0x3EA,
    kSlide = 0x3EE,
    kSlideAtom = 0x3EF,
    kEnvironment = 0x3F2,
    kSlidePersist = 0x3F3,
    kMaster = 0x3F8,
    kDrawingGroup = 0x40B,
    kDrawing = 0x40C,
    kFontCollection = 0x7D5,
    kColourScheme = 0x7F0,
    kPlaceholder = 0xBC3,
    kTextHeader = 0xF9F,
    kTextChars = 0xFA0,
    kTextMasterStyle = 0xFA3,
    kTextLanguage = 0xFA9,
    kFont = 0xFB7,
    kKinsoku = 0xFC8,
    kKinsokuLevel = 0xFD2,
    kSlideList = 0xFF0,
    kUserEdit = 0xFF5,
    kCurrentUser = 0xFF6,
    kPersistDirectory = 0x1772,
    kArtGroup = 0xF000,
    kArtPictures = 0xF001,
    kArtDrawing = 0xF002,
    kArtShapes = 0xF003,
    kArtShape = 0xF004,
    kArtGroupHead = 0xF006,
    kArtPicture = 0xF007,
    kArtDrawingHead = 0xF008,
    kArtGroupBounds = 0xF009,
    kArtShapeHead = 0xF00A,
    kArtOptions = 0xF00B,
    kArtTextbox = 0xF00D,
    kArtAnchor = 0xF010,
    kArtClientData = 0xF011,
    kArtEmf = 0xF01A,
};

// `version` stands in the lowest four bits of the head, `instance` in the twelve above.
QByteArray Record(Type type, int version, int instance, const QByteArray &content);
inline QByteArray Atom(Type type, const QByteArray &content = {}, int instance = 0) {
    return Record(type, 0, instance, content);
}
inline QByteArray Container(Type type, const QByteArray &records, int instance = 0) {
    return Record(type, 0xF, instance, records);
}

// The stream "\x05SummaryInformation" ([MS-OLEPS]): title, comments, time of making.
QByteArray SummaryInformation(const QString &title, const QString &comments, qint64 msecsSinceEpoch);

} // namespace powerpoint::binary
