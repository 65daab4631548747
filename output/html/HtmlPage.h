// Reports as pages (HTML 5).
#pragma once

#include "output/report/Report.h"

namespace output {

struct PictureFile {
    QString name; // without a folder
    QByteArray bytes;
};

// A page in UTF-8, and the files that it shows, to stand in its folder.
struct HtmlPage {
    QByteArray page;
    std::vector<PictureFile> pictures;
};

// Each picture is two files, for browsers that know SVG and for the others. What they are called: `number`
// counts the pictures of the page from 1.
QStringList PictureNames(const QString &prefix, int number);

// `prefix` is what the names of its pictures begin with.
HtmlPage WriteHtmlPage(const ReportProperties &properties, const ReportBlocks &blocks, const QString &prefix);

} // namespace output
