// A surface as a picture file.
#pragma once

#include "diagram/metafile/Metafile.h"

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace diagram {

class Scene;
class Surface;

enum class PictureFormat { Png, Svg, Pdf, Wmf, Emf };

struct ExportOptions {
    // Longest side in pixels for PNG; 0 takes zoom 100 at 96 dots an inch, at most 16384.
    int pixels = 0;
    double margin = 150; // twips around the extent
};

// What a picture of the surface shows, in twips.
QRectF PictureArea(Scene &scene, const ExportOptions &options = {});
// The whole surface, hidden items and the grid left out. Works without a display. The bytes of the file.
QByteArray ExportPicture(Surface &surface, PictureFormat format, const ExportOptions &options = {});
// The same as a Windows metafile: a placeable one of sixteen bits, scaled down where the surface is larger
// than those can tell, or an enhanced one. Texts stay texts, but for lines that hold
// letters outside the Western code page in the one of sixteen bits, which become outlines; pictures are
// embedded, colours that are not opaque are mixed with the surface's back colour. Error 7 "Out of memory"
// beyond 2^31 bytes.
QByteArray ExportMetafile(Surface &surface, MetafileKind kind, const ExportOptions &options = {});
QImage ExportImage(Surface &surface, const ExportOptions &options = {});
// The size of these pictures in twips.
QSizeF PictureSize(Surface &surface, const ExportOptions &options = {});
// The placeable metafile under `path` and the enhanced one beside it, under the same name with the ending
// .emf: a file there that was written by another program stays as it is, then. Written like
// ExportPictureFile's.
void WriteMetafile(Surface &surface, const QString &path);
// Error 5 for a path with another ending than those that ExportPictureFile knows.
void CheckPictureEnding(const QString &path);
// By the ending of the path: .png, .svg, .pdf, .wmf, .emf; error 5 for another. Written beside the target and
// swapped in; errors name the path.
void ExportPictureFile(Surface &surface, const QString &path, const ExportOptions &options = {});

} // namespace diagram
