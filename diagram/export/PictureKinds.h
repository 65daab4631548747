// The formats of pictures, a row each: whoever writes, offers, names or recognises one goes by these.
#pragma once

#include <array>
#include <QByteArray>
#include <QStringList>
#include <vector>

namespace diagram {

class Surface;
struct ExportOptions;

enum class PictureFormat { Png, Svg, Pdf, Wmf, Emf, Count };

struct PictureKind {
    PictureFormat format;
    const char *ending;                // of file names, without a point
    std::array<const char *, 2> types; // MIME types: some formats have two names; null for no second one
    const char *caption;               // in the file dialog; empty where it is not offered
    int place; // from 1, among those that the window offers; settings hold it; 0 for one that isn't offered
    QByteArray (*write)(Surface &, const ExportOptions &);
};

// The bytes of the file, as ExportPicture gives them.
QByteArray WritePng(Surface &surface, const ExportOptions &options);
QByteArray WriteSvg(Surface &surface, const ExportOptions &options);
QByteArray WritePdf(Surface &surface, const ExportOptions &options);
QByteArray WriteWmf(Surface &surface, const ExportOptions &options);
QByteArray WriteEmf(Surface &surface, const ExportOptions &options);

// In the order of PictureFormat.
inline constexpr PictureKind kPictureKinds[] = {
    {PictureFormat::Png, "png", {"image/png", nullptr}, "PNG Picture", 2, WritePng},
    {PictureFormat::Svg, "svg", {"image/svg+xml", nullptr}, "SVG Drawing", 3, WriteSvg},
    {PictureFormat::Pdf, "pdf", {"application/pdf", nullptr}, "PDF Document", 4, WritePdf},
    {PictureFormat::Wmf, "wmf", {"image/x-wmf", "image/wmf"}, "Windows Meta File", 1, WriteWmf},
    {PictureFormat::Emf, "emf", {"image/x-emf", "image/emf"}, "", 0, WriteEmf},
};

static_assert(std::size(kPictureKinds) == std::size_t(PictureFormat::Count), "a format without a row");
static_assert([] {
    for (int row = 0; row < int(std::size(kPictureKinds)); ++row)
        if (int(kPictureKinds[row].format) != row) return false;
    return true;
}());

constexpr const PictureKind &KindOf(PictureFormat format) { return kPictureKinds[int(format)]; }

// The types of pictures that are taken from other programs, those first that look the same everywhere. Some
// of them are never written.
inline constexpr const char *kPictureTypes[] = {"image/png", "image/jpeg",  "image/gif",
                                                "image/bmp", "image/x-emf", "image/emf",
                                                "image/wmf", "image/x-wmf", "image/svg+xml"};

// The kind whose ending `path` has, in upper or lower case, behind a point; null for none.
const PictureKind *KindOfFile(const QString &path);
// All endings.
QStringList PictureEndings();
// Those that the window offers, by their places.
std::vector<const PictureKind *> OfferedPictures();

} // namespace diagram
