// Forms of nodes as pictures, so that nodes of the same look and size are drawn once and copied then.
#pragma once

#include <QHash>
#include <QImage>
#include <QRgb>

namespace diagram {

// Everything that the picture of a form depends on. Lengths in whole device pixels.
struct FormLook {
    int shape = 0, orientation = 0;
    int width = 0, height = 0; // of the box on whose sides the line's middle lies
    int line = 0;              // width
    int style = 0;             // of the line
    QRgb lineColour = 0;
    bool filled = false;
    QRgb fill = 0;

    bool operator==(const FormLook &) const = default;
};

std::size_t qHash(const FormLook &look, std::size_t seed = 0);

class FormCache {
public:
    // Null where there is none.
    const QImage *Find(const FormLook &look) const;
    // Drops all others when there is no room for one more.
    const QImage &Keep(const FormLook &look, const QImage &picture);
    void Clear();

private:
    QHash<FormLook, QImage> pictures_;
    qsizetype bytes_ = 0;
};

} // namespace diagram
