#include "vector/player/Metafile.h"

#include "vector/player/EmfRecords.h"
#include "vector/player/MetafileCanvas.h"
#include "vector/player/Players.h"
#include "vector/player/RecordFields.h"
#include "vector/player/Units.h"
#include "vector/player/WmfRecords.h"

#include <cmath>

namespace vector {

namespace {

constexpr double kMillimetresPerInch = 25.4, kUnitsPerMillimetre = kUnitsPerInch / kMillimetresPerInch;
constexpr double kDotsPerMillimetre = 3.78; // of a screen with 96 an inch, where the file tells nothing

bool HasSize(const QSizeF &size) {
    return std::isfinite(size.width()) && std::isfinite(size.height()) && size.width() > 0 &&
           size.height() > 0;
}

// The frame tells the size in hundredths of a millimetre; the bounds stand in where a writer left it empty.
std::optional<MetafileHead> ReadEmfHead(const QByteArray &bytes) {
    constexpr std::uint32_t kLeastHeader = 88;
    RecordFields fields(bytes);
    const std::uint32_t type = fields.U32(), size = fields.U32();
    const QRectF bounds = fields.Box(), frame = fields.Box();
    const std::uint32_t signature = fields.U32();
    const QPointF dots = fields.Skip(28).Point(), millimetres = fields.Point();
    if (!fields.Good() || type != emf::kHeader || size < kLeastHeader || signature != emf::kSignature)
        return {};
    const bool told = dots.x() > 0 && dots.y() > 0 && millimetres.x() > 0 && millimetres.y() > 0;
    const QSizeF millimetre = told ? QSizeF(dots.x() / millimetres.x(), dots.y() / millimetres.y())
                                   : QSizeF(kDotsPerMillimetre, kDotsPerMillimetre);
    QRectF page(frame.left() / 100 * millimetre.width(), frame.top() / 100 * millimetre.height(),
                frame.width() / 100 * millimetre.width(), frame.height() / 100 * millimetre.height());
    if (!HasSize(page.size())) page = bounds;
    const QSizeF twips(page.width() / millimetre.width() * kUnitsPerMillimetre,
                       page.height() / millimetre.height() * kUnitsPerMillimetre);
    if (!HasSize(twips)) return {};
    return MetafileHead{MetafileKind::Emf, twips, page, millimetre, qsizetype(size)};
}

bool IsWmfHeader(RecordFields fields) {
    const int type = fields.U16(), words = fields.U16(), version = fields.U16();
    return fields.Good() && (type == 1 || type == 2) && words == wmf::kHeaderBytes / 2 &&
           (version == 0x0100 || version == 0x0300);
}

std::optional<MetafileHead> ReadPlaceableHead(const QByteArray &bytes) {
    RecordFields fields(bytes);
    if (fields.U32() != wmf::kPlaceableKey) return {};
    const QPointF corner = fields.Skip(2).ShortPoint(), far = fields.ShortPoint();
    const int unitsPerInch = fields.U16();
    const QRectF page = QRectF(corner, far).normalized();
    if (!IsWmfHeader(fields.Skip(6)) || !HasSize(page.size()) || unitsPerInch == 0) return {};
    return MetafileHead{MetafileKind::Wmf, page.size() * (kUnitsPerInch / unitsPerInch), page,
                        QSizeF(1, 1) * (unitsPerInch / kMillimetresPerInch),
                        wmf::kPlaceableBytes + wmf::kHeaderBytes};
}

// The page is what the first records say of the window; its units are taken for pixels.
std::optional<MetafileHead> ReadPlainHead(const QByteArray &bytes) {
    constexpr int kMostRecords = 100;
    if (!IsWmfHeader(RecordFields(bytes))) return {};
    QPointF origin;
    RecordFields records(QByteArrayView(bytes).sliced(wmf::kHeaderBytes));
    for (int i = 0; i < kMostRecords && records.Left() >= 6; ++i) {
        const qsizetype words = records.U32();
        const int function = records.U16();
        RecordFields fields(records.Take(words * 2 - 6));
        if (!records.Good() || function == wmf::kEof) return {};
        const QPointF value = fields.PointYX();
        if (function == wmf::kSetWindowOrg) origin = value;
        if (function != wmf::kSetWindowExt) continue;
        const QRectF page = QRectF(origin, QSizeF(value.x(), value.y())).normalized();
        if (!HasSize(page.size())) return {};
        return MetafileHead{MetafileKind::Wmf, page.size() * kUnitsPerPixel, page,
                            QSizeF(kDotsPerMillimetre, kDotsPerMillimetre), wmf::kHeaderBytes};
    }
    return {};
}

} // namespace

std::optional<MetafileHead> ReadMetafileHead(const QByteArray &bytes) {
    for (const auto read : {ReadEmfHead, ReadPlaceableHead})
        if (const auto head = read(bytes)) return head;
    return bytes.size() > wmf::kHeaderBytes ? ReadPlainHead(bytes) : std::nullopt;
}

QImage PlayMetafile(const QByteArray &bytes, const MetafileHead &head, const QSize &pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return image;
    image.fill(Qt::transparent);
    QTransform device;
    device.scale(pixels.width() / head.page.width(), pixels.height() / head.page.height());
    device.translate(-head.page.left(), -head.page.top());
    MetafileCanvas canvas(image, device);
    MetafileMapping &mapping = canvas.Now().mapping;
    mapping.unitsPerMillimetre = head.millimetre;
    if (head.kind == MetafileKind::Wmf) {
        // The window of such a file is stretched over its page, whatever the mode.
        mapping.mode = metafile::kAnisotropic;
        mapping.windowOrigin = mapping.viewportOrigin = head.page.topLeft();
        mapping.window = mapping.viewport = head.page.size();
    }
    canvas.MappingChanged();
    const QByteArrayView records =
        QByteArrayView(bytes).sliced(std::min<qsizetype>(head.records, bytes.size()));
    head.kind == MetafileKind::Wmf ? PlayWmf(canvas, records) : PlayEmf(canvas, records);
    return image;
}

} // namespace vector
