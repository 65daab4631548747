// The formats of pictures, a row each: whoever offers, names or recognises one goes by these.
#pragma once

#include "diagram/export/Export.h"

#include <array>
#include <QStringList>

namespace diagram {

struct PictureKind {
    PictureFormat format;
    const char *ending;                // of file names, without a point
    std::array<const char *, 2> types; // MIME; programs look for some under two names; null for none
};

// In the order of PictureFormat.
inline constexpr PictureKind kPictureKinds[] = {
    {PictureFormat::Png, "png", {"image/png", nullptr}},
    {PictureFormat::Svg, "svg", {"image/svg+xml", nullptr}},
    {PictureFormat::Pdf, "pdf", {"application/pdf", nullptr}},
    {PictureFormat::Wmf, "wmf", {"image/x-wmf", "image/wmf"}},
    {PictureFormat::Emf, "emf", {"image/x-emf", "image/emf"}},
};

constexpr const PictureKind &KindOf(PictureFormat format) { return kPictureKinds[int(format)]; }

static_assert([] {
    for (int row = 0; row < int(std::size(kPictureKinds)); ++row)
        if (int(kPictureKinds[row].format) != row) return false;
    return true;
}());

// Files of pictures as programs hand them over, also of kinds that aren't written: those that look the same
// everywhere first.
inline constexpr const char *kPictureTypes[] = {"image/png", "image/jpeg",  "image/gif",
                                                "image/bmp", "image/x-emf", "image/emf",
                                                "image/wmf", "image/x-wmf", "image/svg+xml"};

// The kind whose ending `path` has, in upper or lower case, behind a point; null for none.
const PictureKind *KindOfFile(const QString &path);
// All endings.
QStringList PictureEndings();

} // namespace diagram
