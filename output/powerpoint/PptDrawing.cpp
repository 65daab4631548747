#include "output/powerpoint/PptDrawing.h"

#include <QCryptographicHash>

namespace powerpoint::binary {

namespace {

constexpr int kCluster = 1024; // identities of shapes that a drawing has
constexpr int kRectangle = 1, kPictureFrame = 75;
// Flags of a shape.
constexpr int kIsGroup = 1, kIsPatriarch = 4, kIsBackground = 0x400, kHasAnchor = 0x200, kHasKind = 0x800;

// The options of a shape: the numbers, and behind all of these the values of any length.
class Options {
public:
    Options &Number(int id, qint64 value) {
        numbers_.U16(id).U32(value);
        ++count_;
        return *this;
    }
    Options &Text(int id, const QString &text) {
        constexpr int kComplex = 0x8000;
        const QByteArray value = Values().Text(text).U16(0);
        Number(id | kComplex, value.size());
        values_.Bytes(value);
        return *this;
    }
    QByteArray Record() const {
        return binary::Record(kArtOptions, 3, count_, Values().Bytes(numbers_).Bytes(values_));
    }

private:
    Values numbers_, values_;
    int count_ = 0;
};

constexpr int kProtection = 0x7F, kPictureId = 0x104 | 0x4000, kFillColour = 0x181, kFillBack = 0x183,
              kFillFlags = 0x1BF, kLineFlags = 0x1FF, kShapeName = 0x380, kShapeDescription = 0x381,
              kAnchorText = 0x87;
constexpr qint64 kSchemeBackground = 0x08000000, kNoFill = 0x00100000, kFilled = 0x00100010,
                 kNoLine = 0x00080000, kKeepsProportions = 0x00800080;

QByteArray Anchor(const QRectF &points) {
    const auto unit = [](double at) { return qRound(at * kUnitsPerPoint); };
    return Atom(kArtAnchor, Values()
                                .U16(unit(points.top()))
                                .U16(unit(points.left()))
                                .U16(unit(points.right()))
                                .U16(unit(points.bottom())));
}

} // namespace

Drawing::Drawing(int number) : number_(number) {
    const QByteArray bounds = Record(kArtGroupBounds, 1, 0, QByteArray(16, 0));
    shapes_ = Container(kArtShape, bounds + Head(0, kIsGroup | kIsPatriarch));
}

QByteArray Drawing::Head(int kind, int flags) {
    return Record(kArtShapeHead, 2, kind, Values().U32(number_ * kCluster + count_++).U32(flags));
}

void Drawing::AddText(const QRectF &points, Place place, TextKind kind, const QString &text) {
    constexpr int kMiddle = 1, kTop = 0, kWhole = 0;
    const QByteArray options = Options()
                                   .Number(kAnchorText, kind == TextKind::Title ? kMiddle : kTop)
                                   .Number(kFillFlags, kNoFill)
                                   .Number(kLineFlags, kNoLine)
                                   .Record();
    const qint64 position = kind == TextKind::Title ? 0 : 1;
    const QByteArray data = Atom(kPlaceholder, Values().U32(position).U8(int(place)).U8(kWhole).U16(0));
    const QByteArray content = Atom(kTextHeader, Values().U32(int(kind))) +
                               (text.isEmpty() ? QByteArray() : Atom(kTextChars, Values().Text(text)));
    shapes_ += Container(kArtShape, Head(kRectangle, kHasAnchor | kHasKind) + options + Anchor(points) +
                                        Container(kArtClientData, data) + Container(kArtTextbox, content));
}

void Drawing::AddPicture(const QRectF &points, int picture, const QString &name, const QString &description) {
    Options options;
    options.Number(kProtection, kKeepsProportions).Number(kPictureId, picture);
    options.Number(kFillFlags, kNoFill).Number(kLineFlags, kNoLine);
    options.Text(kShapeName, name).Text(kShapeDescription, description);
    shapes_ +=
        Container(kArtShape, Head(kPictureFrame, kHasAnchor | kHasKind) + options.Record() + Anchor(points));
}

QByteArray Drawing::Finished() const {
    const int last = number_ * kCluster + count_; // the background's
    const QByteArray background =
        Record(kArtShapeHead, 2, kRectangle, Values().U32(last).U32(kIsBackground | kHasKind)) +
        Options()
            .Number(kFillColour, kSchemeBackground)
            .Number(kFillBack, kSchemeBackground)
            .Number(kFillFlags, kFilled)
            .Number(kLineFlags, kNoLine)
            .Record();
    const QByteArray head = Atom(kArtDrawingHead, Values().U32(count_ + 1).U32(last), number_);
    return Container(kDrawing, Container(kArtDrawing, head + Container(kArtShapes, shapes_) +
                                                          Container(kArtShape, background)));
}

namespace {

constexpr int kEmf = 2, kOneUid = 0x3D4;

// A rectangle in the metafile's header, of four signed numbers, that begins at that byte.
QByteArray RectangleAt(const QByteArray &emf, int from) {
    constexpr int kBytes = 16;
    return emf.mid(from, kBytes).leftJustified(kBytes, '\0');
}

// The metafile compressed, behind the size and the bounds that readers need before they unpack it.
QByteArray PackedEmf(const QByteArray &emf, const QByteArray &uid) {
    constexpr int kBounds = 8, kFrame = 24, kEmuPerUnit = 360, kDeflated = 0, kNoFilter = 0xFE;
    const QByteArray frame = RectangleAt(emf, kFrame), packed = qCompress(emf).mid(4);
    const auto side = [&](int from, int to) {
        const auto *numbers = frame.constData();
        return (qFromLittleEndian<qint32>(numbers + to) - qFromLittleEndian<qint32>(numbers + from)) *
               qint64(kEmuPerUnit);
    };
    return Record(kArtEmf, 0, kOneUid,
                  Values()
                      .Bytes(uid)
                      .U32(emf.size())
                      .Bytes(RectangleAt(emf, kBounds))
                      .U32(side(0, 8))
                      .U32(side(4, 12))
                      .U32(packed.size())
                      .U8(kDeflated)
                      .U8(kNoFilter)
                      .Bytes(packed));
}

} // namespace

int Pictures::Add(const QByteArray &emf) {
    constexpr int kPict = 4;
    const QByteArray uid = QCryptographicHash::hash(emf, QCryptographicHash::Md4);
    const QByteArray blip = PackedEmf(emf, uid);
    const QByteArray entry =
        Values().U8(kEmf).U8(kPict).Bytes(uid).U16(0xFF).U32(blip.size()).U32(1).U32(stream_.size()).U32(0);
    entries_ += Record(kArtPicture, 2, kEmf, entry);
    stream_ += blip;
    return ++count_;
}

QByteArray Pictures::Store() const {
    return count_ ? Container(kArtPictures, entries_, count_) : QByteArray();
}

QByteArray DrawingGroup(const std::vector<int> &shapes, const Pictures &pictures) {
    int all = 0;
    Values clusters;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        all += shapes[i] + 1; // and the background
        clusters.U32(qint64(i) + 1).U32(shapes[i] + 1);
    }
    const auto count = qint64(shapes.size());
    const QByteArray head =
        Atom(kArtGroupHead,
             Values().U32((count + 1) * kCluster).U32(count + 1).U32(all).U32(count).Bytes(clusters));
    return Container(kDrawingGroup, Container(kArtGroup, head + pictures.Store()));
}

} // namespace powerpoint::binary
