// Text broken into lines and shaped into glyphs.
#pragma once

#include "diagram/render/Faces.h"

#include <list>
#include <QGlyphRun>
#include <QString>
#include <unordered_map>
#include <vector>

namespace diagram {

struct TextLine {
    double width = 0;          // twips
    double baseLine = 0;       // from the block's top, twips
    double bottom = 0;         // the same
    int start = 0, length = 0; // in the text
    bool rightToLeft = false;
    // Device pixels from the left end of the base line; empty without a device scale.
    std::vector<QGlyphRun> runs;
};

// A text in one font, wrapped at a width. Independent of the zoom but for the runs: the same words stand in
// the same line.
struct TextBlock {
    std::shared_ptr<const Face> face;
    QString text;
    std::vector<TextLine> lines;
    double width = 0, height = 0; // twips
};

// Longer texts are laid out as far as this only: what follows is neither seen nor measured.
constexpr int kMostCharacters = 20000;

// In twips. Lines are wrapped at `width`, or, when the longest word is wider, at what that needs, but
// `widest` at most; then words are broken. A width of 0 or less breaks at line ends only.
struct WrapWidth {
    WrapWidth(double at, double most) : width(at), widest(most) {}
    WrapWidth(double at) : WrapWidth(at, at) {}
    double width, widest;
    double room = 0; // height beyond which lines aren't seen and may be left out; 0 for none
};

// CR, LF and both together end a line. `scale` is device pixels a twip for the runs; 0 makes none.
TextBlock LayOut(Faces &faces, const QString &text, const Font &font, const WrapWidth &wrap, double scale);

// The blocks that were used last, up to a bound in bytes.
class TextCache {
public:
    explicit TextCache(Faces &faces) : faces_(faces) {}
    // With `lines`, what CutAfter gives of the block.
    const TextBlock &Find(const QString &text, const Font &font, const WrapWidth &wrap, double scale,
                          int lines = 0);
    void Clear();
    std::size_t Bytes() const { return bytes_; }

private:
    struct Key {
        QString text;
        Font font;
        int width, widest, room;
        float scale;
        int lines;
        friend bool operator==(const Key &, const Key &) = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key &key) const;
    };
    struct Entry {
        Key key;
        TextBlock block;
        std::size_t bytes;
    };
    void Trim();

    Faces &faces_;
    std::list<Entry> entries_; // used last comes first
    std::unordered_map<Key, std::list<Entry>::iterator, KeyHash> index_;
    std::size_t bytes_ = 0;
};

} // namespace diagram
