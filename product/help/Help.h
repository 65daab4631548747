// The help as a PDF file: a title with the contents, then the guide.
#pragma once

#include "settings/Settings.h"

#include <QDate>

namespace product {

struct HelpTask {
    QString guide; // a file of markdown; addresses of its pictures count from its folder
    settings::ProductTerms terms;
    QString version;
    QDate date;   // told in the file as the day of its making
    QString icon; // an SVG
};

// The bytes of the file, the same for the same task. The guide's first heading is the title; those of level 2
// and 3 stand in the contents, whose lines are links, and all of them in the bookmarks. Error 53 when a file
// can't be read, 5 when a link of the guide leads nowhere.
QByteArray HelpPdf(const HelpTask &task);

} // namespace product
