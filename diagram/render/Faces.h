// Fonts ready for measuring and drawing.
#pragma once

#include "diagram/model/Font.h"

#include <array>
#include <memory>
#include <QFont>
#include <QRawFont>
#include <unordered_map>
#include <vector>

namespace diagram {

// A font of the model at the size at which a device pixel is a twip: all measures are in twips.
struct Face {
    explicit Face(const Font &font);

    Font key;
    QFont font;
    QRawFont raw;
    QString family; // of the font found
    double ascent = 0;
    double height = 0;                               // from line to line
    double underline = 0, strike = 0, thickness = 0; // below the base line; of the lines

    // Glyphs and widths of the printable ASCII characters; `plain` when the font has them all.
    static constexpr int kFirst = 32, kPast = 127;
    bool plain = false;
    std::array<quint32, kPast - kFirst> glyphs{};
    std::array<float, kPast - kFirst> widths{};
};

// Bounded; a face given out stays valid as long as it is held.
class Faces {
public:
    std::shared_ptr<const Face> Find(const Font &font);
    // `raw` in another size. `pixels` is the size that text of `raw` has on the device.
    const QRawFont &Scaled(const QRawFont &raw, double pixels);
    void Clear();

private:
    std::unordered_multimap<std::size_t, std::shared_ptr<const Face>> faces_;
    struct Size {
        QRawFont from;
        double pixels;
        QRawFont to;
    };
    std::vector<Size> sizes_;
};

} // namespace diagram
