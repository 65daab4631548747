#include "mainwindow/forms/PictureChoice.h"

#include "diagram/geometry/Units.h"
#include "settings/GetSet.h"

#include <algorithm>
#include <QCoreApplication>
#include <QLocale>

namespace mainwindow {

namespace {

using diagram::PictureFormat;

QString Tr(const char *text) { return QCoreApplication::translate("PictureChoice", text); }

struct NumberRow {
    const char *name;
    int PictureChoice::*number;
    int lowest, highest;
};
constexpr NumberRow kNumbers[] = {
    {"PictureScale", &PictureChoice::scale, kLeastScale, kMostScale},
    {"PicturePixels", &PictureChoice::pixels, kLeastSide, kMostSidePixels},
    {"PictureDots", &PictureChoice::dotsPerInch, kLeastDots, kMostDots},
};
constexpr char kBySide[] = "PictureBySide", kBackground[] = "PictureBackground";

int NumberOf(const char *name, int lowest, int highest, int usual) {
    bool good = false;
    const int number = settings::GetSet(QLatin1String(name)).toInt(&good);
    return good && number >= lowest && number <= highest ? number : usual;
}

constexpr double kTwipsOfCentimetre = diagram::kTwipsPerInch / 2.54;

QString Pair(const QString &width, const QString &height) {
    return width + QStringLiteral(" \u00D7 ") + height;
}

QString Centimetres(const QSizeF &size) {
    const QLocale locale;
    return Tr("%1 cm").arg(
        Pair(locale.toString(size.width(), 'f', 1), locale.toString(size.height(), 'f', 1)));
}

} // namespace

PictureChoice LoadPictureChoice() {
    PictureChoice choice;
    for (const NumberRow &row : kNumbers)
        choice.*row.number = NumberOf(row.name, row.lowest, row.highest, choice.*row.number);
    choice.bySide = NumberOf(kBySide, 0, 1, 0) == 1;
    choice.background =
        diagram::PictureBackground(NumberOf(kBackground, 0, int(diagram::PictureBackground::Transparent), 0));
    return choice;
}

void SavePictureChoice(const PictureChoice &choice) {
    for (const NumberRow &row : kNumbers)
        settings::SaveSet(QLatin1String(row.name), QString::number(choice.*row.number));
    settings::SaveSet(QLatin1String(kBySide), QString::number(int(choice.bySide)));
    settings::SaveSet(QLatin1String(kBackground), QString::number(int(choice.background)));
}

diagram::ExportOptions OptionsOf(const PictureChoice &choice, PictureFormat format) {
    const bool isPng = format == PictureFormat::Png;
    diagram::ExportOptions options;
    if (isPng && choice.bySide)
        options.pixels = choice.pixels;
    else
        options.scale = choice.scale / 100.0;
    if (isPng) options.dotsPerInch = choice.dotsPerInch;
    options.background = choice.background;
    return options;
}

QString SizeText(const PictureChoice &choice, PictureFormat format, const QSizeF &page) {
    const diagram::ExportOptions options = OptionsOf(choice, format);
    if (format != PictureFormat::Png) return Centimetres(page * options.scale / kTwipsOfCentimetre);
    const QSize pixels = diagram::PngSize(page, options);
    const QLocale locale;
    return Tr("%1 pixels, %2")
        .arg(Pair(locale.toString(pixels.width()), locale.toString(pixels.height())),
             Centimetres(QSizeF(pixels) * 2.54 / options.dotsPerInch));
}

} // namespace mainwindow
