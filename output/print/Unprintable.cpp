#include "output/print/Unprintable.h"

#include <cmath>
#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace print {

namespace {

QString Tr(const char *text) { return QCoreApplication::translate("Printing", text); }

struct Side {
    const char *text;
    qreal (QMarginsF::*width)() const;
};
constexpr Side kSides[] = {{"left %1 mm", &QMarginsF::left},
                           {"top %1 mm", &QMarginsF::top},
                           {"right %1 mm", &QMarginsF::right},
                           {"bottom %1 mm", &QMarginsF::bottom}};

// Rounded up: a margin of what is told is wide enough.
QString Tenths(qreal millimetres) {
    constexpr double kSlack = 1e-6; // of a tenth: rounding
    return QLocale().toString(std::ceil(millimetres * 10 - kSlack) / 10, 'f', 1);
}

} // namespace

QString TextOfSides(const QMarginsF &margins, const QMarginsF &unprintable) {
    constexpr qreal kNothing = 0.1;
    QStringList sides;
    for (const Side &side : kSides)
        if ((unprintable.*side.width)() - (margins.*side.width)() >= kNothing)
            sides << Tr(side.text).arg(Tenths((unprintable.*side.width)()));
    if (sides.isEmpty()) return {};
    return Tr("The printer needs wider margins: %1.").arg(sides.join(QLatin1String(", ")));
}

} // namespace print
