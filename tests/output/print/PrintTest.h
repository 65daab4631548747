// What the tests of printing share: slices with red boxes, pages written as a PDF, and what other programs
// read in it.
#pragma once

#include "diagram/model/Surface.h"
#include "output/print/PrintSlices.h"
#include "support/testing/ScriptedDesktop.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QTemporaryDir>

namespace print::testing {

constexpr double kTwipsOfMillimetre = 1440 / 25.4;

// A filled box without a border; places in millimetres of the surface.
diagram::Node &AddBox(diagram::Surface &surface, double left, double top, double width, double height,
                      const QString &text = QString());

// The smallest rectangle that holds all red pixels, in millimetres; `scale` of them are one.
QRectF RedBounds(const QImage &image, double scale);

class PrintTest : public ::testing::Test {
protected:
    // A slice of the map to be printed, empty at first.
    diagram::Surface &AddSlice(const QString &caption = QStringLiteral("Slice"));

    // Writes all pages; their number.
    int WritePdf();
    QString PdfPath() const { return folder_.filePath(QStringLiteral("out.pdf")); }
    // As other programs read them, by the page's number from 1.
    int PagesOfPdf();
    QSizeF PageSizeOfPdf(); // millimetres
    QString TextOfPdf(int page);
    QImage PictureOfPdf(int page, int dotsPerInch);
    // As the preview paints it, so many pixels a millimetre.
    QImage PictureOfPreview(int page, double scale);
    // What a program says; fails the test when it isn't there.
    QString Ask(const QString &program, const QStringList &arguments);

    support::testing::ScriptedDesktop desktop;
    PageSetup setup;
    PrintedMap map;
    Sheets sheets;

private:
    QTemporaryDir folder_;
};

} // namespace print::testing
