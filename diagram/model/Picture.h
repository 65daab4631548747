// A picture as the model keeps it: the bytes of the picture file, decoded once when it is first painted.
#pragma once

#include <memory>
#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace diagram {

// Cheap to copy (one shared pointer); null when there is no picture. Equal when the bytes are.
class Picture {
public:
    Picture() = default;
    // Recognises the format by content (png, jpg, bmp, gif, wmf, emf, svg and what the platform's readers
    // know). Error 481 "Invalid picture" for bytes that are no picture or that announce more than 2^28
    // pixels, before memory is taken for them. Keeps the bytes as they are.
    static Picture FromBytes(const QByteArray &bytes);
    // Whether FromBytes takes them.
    static bool IsPicture(const QByteArray &bytes);
    // Encodes as PNG.
    static Picture FromImage(const QImage &image);
    // Reads a file; error 53 "File not found" (with the path), 481 as above.
    static Picture FromFile(const QString &path);

    bool IsNull() const { return !data_; }
    const QByteArray &Bytes() const; // empty for none
    QSize PixelSize() const;         // as the header says; empty for none
    // Size in twips at the resolution of the file, 96 dots an inch where it tells none.
    QSizeF SizeInTwips() const;
    // Decoded at the first call; a null image when the data behind the header are broken, and for a
    // compressed drawing. An SVG is read on its own: nothing outside of it that it names is opened.
    const QImage &Image() const;
    // Whether it can be drawn at any size: wmf, emf, svg.
    bool IsDrawing() const;
    // For a place of so many pixels: drawings are made as large as the place, up to 4096 pixels a side, other
    // pictures come as they are.
    QImage ImageFor(const QSizeF &pixels) const;
    // The same for all copies that share their data; a key for caches as long as one of these is kept.
    quintptr Identity() const { return reinterpret_cast<quintptr>(data_.get()); }

    friend bool operator==(const Picture &a, const Picture &b);

private:
    struct Data;
    static Picture Recognised(const QByteArray &bytes); // null for none
    std::shared_ptr<const Data> data_;
};

} // namespace diagram
