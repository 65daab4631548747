// A surface as a picture file.
#pragma once

#include "diagram/export/PictureKinds.h"
#include "vector/player/Metafile.h"

#include <functional>
#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QString>

namespace diagram {

class Scene;
class Surface;

// The surface's back colour and picture, white paper, or nothing: what is below shows through, where the
// format can do so.
enum class PictureBackground { AsShown, White, Transparent };

struct ExportOptions {
    // Longest side in pixels for PNG; 0 takes what scale and resolution make, at most 16384.
    int pixels = 0;
    double margin = 150;  // twips around the extent
    double scale = 1;     // of the size at zoom 100; metafiles are not scaled
    int dotsPerInch = 96; // of a PNG, which says so
    PictureBackground background = PictureBackground::AsShown;
    // Asked now and then. False gives up: what is made is of no use then, and files are not written.
    std::function<bool()> goOn = {};
};

// The size in pixels of a PNG of a page with that size in twips.
QSize PngSize(const QSizeF &page, const ExportOptions &options);
// What a picture of the surface shows, in twips.
QRectF PictureArea(Scene &scene, const ExportOptions &options = {});
// The whole surface, hidden items and the grid left out. Works without a display. The bytes of the file.
QByteArray ExportPicture(Surface &surface, PictureFormat format, const ExportOptions &options = {});
// The same as a Windows metafile: a placeable one of sixteen bits, scaled down where the surface is larger
// than those can tell, or an enhanced one. Texts stay texts, but for lines that hold letters outside the
// Western code page in the one of sixteen bits, which become outlines; pictures are embedded, colours that
// are not opaque are mixed with the surface's back colour. Error 7 "Out of memory" beyond 2^31 bytes.
QByteArray ExportMetafile(Surface &surface, vector::MetafileKind kind, const ExportOptions &options = {});
// The picture of a PNG.
QImage ExportImage(Surface &surface, const ExportOptions &options = {});
// The size of all these pictures in twips.
QSizeF PictureSize(Surface &surface, const ExportOptions &options = {});
// Writes the placeable metafile to `path` and the enhanced one beside it, under the same name with the ending
// .emf, unless a file of that name stands there that another program has written. As ExportPictureFile
// writes.
void WriteMetafile(Surface &surface, const QString &path);
// Error 5 for a path with another ending than those that ExportPictureFile knows.
void CheckPictureEnding(const QString &path);
// By the ending of the path: .png, .svg, .pdf, .wmf, .emf; error 5 for another. Written beside the target and
// swapped in; errors name the path. False when it was given up.
bool ExportPictureFile(Surface &surface, const QString &path, const ExportOptions &options = {});

} // namespace diagram
