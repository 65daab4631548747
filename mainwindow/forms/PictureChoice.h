// What the user chose for pictures as files, remembered from one to the next.
#pragma once

#include "diagram/export/Export.h"

#include <QSizeF>

namespace mainwindow {

constexpr int kLeastScale = 10, kMostScale = 1000;      // per cent
constexpr int kLeastDots = 30, kMostDots = 1200;        // an inch
constexpr int kLeastSide = 16, kMostSidePixels = 16384; // of a PNG

struct PictureChoice {
    bool bySide = false; // the longest side of a PNG is given, not the scale
    int scale = 100;     // per cent of zoom 100
    int pixels = 1600;   // longest side
    int dotsPerInch = 96;
    diagram::PictureBackground background = diagram::PictureBackground::AsShown;
    friend bool operator==(const PictureChoice &, const PictureChoice &) = default;
};

// That of the last time; what isn't stored, or out of range, is as usual.
PictureChoice LoadPictureChoice();
void SavePictureChoice(const PictureChoice &choice);

// A side in pixels and a resolution are a PNG's alone.
diagram::ExportOptions OptionsOf(const PictureChoice &choice, diagram::PictureFormat format);
// How large a picture of a page of that size, in twips, becomes: "800 x 600 pixels, 21.2 x 15.9 cm".
QString SizeText(const PictureChoice &choice, diagram::PictureFormat format, const QSizeF &page);

// What the form is handed.
struct PictureFormArgument {
    static constexpr char kForm[] = "frmPicture";
    diagram::PictureFormat format;
    QSizeF page;          // twips
    PictureChoice choice; // changed by OK alone
};

} // namespace mainwindow
