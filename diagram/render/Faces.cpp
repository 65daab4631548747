#include "diagram/render/Faces.h"

#include "diagram/geometry/Units.h"

#include <algorithm>
#include <QString>

namespace diagram {

namespace {

constexpr std::size_t kMostFaces = 64;
constexpr std::size_t kMostSizes = 32;

// What stands in for fonts that maps often name and that a machine may not have.
struct StandIn {
    const char *family;
    const char *others;
};
constexpr StandIn kStandIns[] = {
    {"Arial", "Liberation Sans,Helvetica,Nimbus Sans,DejaVu Sans"},
    {"Helvetica", "Arial,Liberation Sans,Nimbus Sans,DejaVu Sans"},
    {"MS Sans Serif", "Microsoft Sans Serif,Arial,Liberation Sans,Nimbus Sans,DejaVu Sans"},
    {"Microsoft Sans Serif", "MS Sans Serif,Arial,Liberation Sans,Nimbus Sans,DejaVu Sans"},
    {"MS Serif", "Times New Roman,Liberation Serif,Nimbus Roman,DejaVu Serif"},
    {"Times New Roman", "Liberation Serif,Nimbus Roman,DejaVu Serif"},
    {"Courier New", "Liberation Mono,Nimbus Mono PS,DejaVu Sans Mono"},
    {"Courier", "Courier New,Liberation Mono,Nimbus Mono PS,DejaVu Sans Mono"},
    {"Tahoma", "Verdana,DejaVu Sans"},
    {"Verdana", "DejaVu Sans"},
    {"Calibri", "Carlito,Liberation Sans,Nimbus Sans"},
    {"Cambria", "Caladea,Liberation Serif,Nimbus Roman"},
    {"Segoe UI", "Open Sans,Noto Sans,DejaVu Sans"},
};

QStringList Families(const QString &name) {
    QStringList families{name};
    for (const StandIn &row : kStandIns)
        if (name.compare(QLatin1String(row.family), Qt::CaseInsensitive) == 0)
            families += QString::fromLatin1(row.others).split(QLatin1Char(','));
    return families;
}

// Shapes are not fitted to pixels across, so that lines break at the same words in every zoom.
QFont LayoutFont(const Font &font) {
    QFont out;
    out.setFamilies(Families(font.Name()));
    out.setPixelSize(std::max(1, qRound(font.Size() * kTwipsPerPoint)));
    out.setBold(font.Bold());
    out.setItalic(font.Italic());
    out.setKerning(false);
    out.setHintingPreference(QFont::PreferVerticalHinting);
    return out;
}

QString PlainCharacters() {
    QString text;
    for (int c = Face::kFirst; c < Face::kPast; ++c) text += QChar(c);
    return text;
}

} // namespace

Face::Face(const Font &of) : key(of), font(LayoutFont(of)), raw(QRawFont::fromFont(font)) {
    const double pixels = font.pixelSize();
    if (raw.isValid()) raw.setPixelSize(pixels), family = raw.familyName();
    ascent = raw.isValid() ? raw.ascent() : 0.8 * pixels;
    height = raw.isValid() ? raw.ascent() + raw.descent() + raw.leading() : 1.2 * pixels;
    thickness = std::max(raw.isValid() ? raw.lineThickness() : 0, pixels / 20);
    underline = std::max(raw.isValid() ? raw.underlinePosition() : 0, pixels / 14);
    strike = -(raw.isValid() && raw.xHeight() > 0 ? raw.xHeight() : pixels / 2) / 2;
    if (!raw.isValid()) return;
    const QList<quint32> found = raw.glyphIndexesForString(PlainCharacters());
    if (found.size() != kPast - kFirst || found.contains(0u)) return;
    const QList<QPointF> advances = raw.advancesForGlyphIndexes(found);
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        glyphs[i] = found[qsizetype(i)];
        widths[i] = float(advances[qsizetype(i)].x());
    }
    plain = true;
}

std::shared_ptr<const Face> Faces::Find(const Font &font) {
    const std::size_t hash = font.Hash();
    const auto [from, to] = faces_.equal_range(hash);
    for (auto at = from; at != to; ++at)
        if (at->second->key == font) return at->second;
    if (faces_.size() >= kMostFaces) faces_.clear();
    return faces_.emplace(hash, std::make_shared<Face>(font))->second;
}

const QRawFont &Faces::Scaled(const QRawFont &raw, double pixels) {
    pixels = std::clamp(std::round(pixels * 64) / 64, 0.25, 20000.0);
    for (const Size &size : sizes_)
        if (size.pixels == pixels && size.from == raw) return size.to;
    if (sizes_.size() >= kMostSizes) sizes_.erase(sizes_.begin(), sizes_.begin() + kMostSizes / 2);
    QRawFont scaled = raw;
    scaled.setPixelSize(pixels);
    sizes_.push_back({raw, pixels, scaled});
    return sizes_.back().to;
}

void Faces::Clear() {
    faces_.clear();
    sizes_.clear();
}

} // namespace diagram
