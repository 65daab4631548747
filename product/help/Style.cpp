#include "product/help/Style.h"

#include <algorithm>
#include <iterator>

namespace product::style {

namespace {

QFont Font(const char *family, double points) {
    QFont font{QLatin1String(family)};
    font.setPixelSize(qRound(Points(points)));
    font.setHintingPreference(QFont::PreferNoHinting);
    // Too little to see, but it keeps the ligatures out: whoever searches the file doesn't find texts with
    // them.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.5);
    return font;
}

} // namespace

double HeadingSize(int level) {
    constexpr double kSizes[] = {22, 16.5, 13.5, 12};
    return kSizes[std::clamp(level, 1, int(std::size(kSizes))) - 1];
}

QFont TextFont(double points) { return Font("Carlito", points); }
QFont CodeFont(double points) { return Font("Liberation Mono", points * kCodeShare); }

} // namespace product::style
