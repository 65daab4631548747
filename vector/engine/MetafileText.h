// Text as metafiles keep it: how far each character goes.
#pragma once

#include "vector/engine/ContentTarget.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainterPath>
#include <QString>
#include <vector>

namespace vector {

// A stretch of a line that reads in one direction.
struct MetafileRun {
    double left; // in units of the piece, from its left end
    bool rightToLeft;
    QString text;
    std::vector<int> advances; // as Advances gives them
};

class MetafileText {
public:
    // The line in pieces from left to right of which no reader has to find out the order: one of plain
    // letters, or one for each change of direction. Blanks between them are left out.
    std::vector<MetafileRun> Runs(const TextPiece &piece, double scale);
    // For each UTF-16 unit of the piece the way to the next, in order of reading; their sum is the width
    // times the scale, rounded.
    std::vector<int> Advances(const TextPiece &piece, double scale);

private:
    struct Measured {
        QFontMetricsF metrics;
        QHash<QString, double> widths; // of single characters
        double WidthOf(const QString &character);
    };
    Measured &MeasuredOf(const TextFont &font);
    std::vector<double> Widths(const TextPiece &piece);

    QHash<TextFont, Measured> measured_;
};

// The letters as an area in the painter's coordinates, as wide as the piece.
QPainterPath OutlinesOf(const TextPiece &piece);

// Whether letters of the text change their form or order beside others, or come from fonts of other scripts.
bool IsIntricate(const QString &text);

} // namespace vector
