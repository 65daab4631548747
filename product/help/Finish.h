// What QPdfWriter leaves out of a file: links within it, bookmarks, and a date of the maker's choice.
#pragma once

#include "product/help/PdfFile.h"

#include <QDate>
#include <QString>

namespace product {

struct Place {
    QString anchor, title;
    int level = 1; // in the bookmarks, from 1
    int page = 0;  // from 0
    double y = 0;  // points from the bottom of the page
};

// Links to "#anchor" lead to the place of that name. Error 5 for one that has none, and for an address
// without a scheme.
void LeadLinks(PdfFile &file, const QList<Place> &places);
// The places as a tree beside the pages.
void AddBookmarks(PdfFile &file, const QList<Place> &places);
// The time of its making at noon of that day.
void SetDate(PdfFile &file, const QDate &date);

} // namespace product
