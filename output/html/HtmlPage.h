// Reports as pages (HTML 5).
#pragma once

#include "output/report/Report.h"

namespace output {

struct PictureFile {
    QString name; // without a folder
    QByteArray bytes;
};

// A page in UTF-8, and the picture files that it shows, to be written into its folder.
struct HtmlPage {
    QByteArray page;
    std::vector<PictureFile> pictures;
};

// The names of a picture's two files, one for browsers that know SVG and one for the others. `number` counts
// the pictures of the page from 1.
QStringList PictureNames(const QString &prefix, int number);

// `prefix` is what the names of its pictures begin with.
HtmlPage WriteHtmlPage(const ReportProperties &properties, const ReportBlocks &blocks, const QString &prefix);

} // namespace output
