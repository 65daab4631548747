// What other programs read from a PDF.
#pragma once

#include <QImage>
#include <QString>
#include <vector>

namespace cups_test {

constexpr int kDotsPerInch = 254; // ten to a millimetre

// The pages in colours, at kDotsPerInch; made in `folder`.
std::vector<QImage> PagesOf(const QString &pdf, const QString &folder);
// The page turned so that it has that size, if one of the quarter turns does that: a printer turns sheets
// that lie across its paper.
QImage Upright(const QImage &page, QSize size);
// The texts without spaces at their ends; a form feed ends each page.
QString TextOf(const QString &pdf);
// Of the first page, "595 x 842" in points.
QString SizeOf(const QString &pdf);

} // namespace cups_test
