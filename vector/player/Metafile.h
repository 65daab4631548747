// Windows metafiles read: what they tell about themselves, and the picture that they play.
#pragma once

#include <optional>
#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSizeF>

namespace vector {

enum class MetafileKind { Wmf, Emf };

// What the head of a metafile tells.
struct MetafileHead {
    MetafileKind kind;
    QSizeF twips;      // of the page, both above 0
    QRectF page;       // in units of the file's device
    QSizeF millimetre; // in units of the file's device
    qsizetype records; // where the first one stands
};

// Recognises placeable ([MS-WMF] 2.3.2.3) and plain metafiles of sixteen bits and enhanced ones ([MS-EMF]) by
// their content; none for anything else, for a head that is cut off, and for a page without a size.
std::optional<MetafileHead> ReadMetafileHead(const QByteArray &bytes);

// The picture stretched to `pixels`, transparent where nothing is drawn. What comes behind damage, and what
// would take longer than drawings do, is left out. Texts need a QGuiApplication.
QImage PlayMetafile(const QByteArray &bytes, const MetafileHead &head, const QSize &pixels);

} // namespace vector
