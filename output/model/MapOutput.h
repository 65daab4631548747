// A map as reports, slides and pages need it: plain values, read once from a window, which is left as it is.
#pragma once

#include "diagram/export/Export.h"
#include "document/MapWindow.h"
#include "support/Colour.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

namespace output {

struct NodeOutput {
    QString text, event;
    QString level;       // its name; empty for none
    QString groups;      // their names, separated by commas
    QStringList dates;   // texts of the days that date links lead to, with the last day of what lasts
    QStringList linksTo; // texts of the nodes that ordinary links lead to
    bool hidden = false;
};

// A slice with its surface, which must live as long as pictures are made of it.
struct SliceOutput {
    int index = 0; // of the surface in the window's array
    QString caption;
    support::Colour backColour = support::kWhite;
    std::vector<NodeOutput> nodes; // hidden ones too, in the order of adding
    diagram::Surface *surface = nullptr;

    // The whole slice as a picture file; hidden items are left out.
    QByteArray Picture(diagram::PictureFormat format, const diagram::ExportOptions &options = {}) const;
    // The size in twips that pictures of it have.
    QSizeF PictureSize() const;
};

// Which members of the two lists are ticked.
struct FilterOutput {
    QStringList levels, groups;
    bool leavesOut = false; // whether a level or a group is not ticked
};

struct MapOutput {
    QString title; // the name of the file without its ending; the word for a map where there is none
    QString file;  // the path of the map; empty for one that was not saved yet
    QDateTime made;
    FilterOutput filter;
    std::vector<SliceOutput> slices; // in the order of the array
    int current = 0;                 // position of the selected tab's slice in `slices`

    const SliceOutput &Current() const { return slices[std::size_t(current)]; }
};

// The time is that of the window's clock.
MapOutput ReadMap(document::MapWindow &window);
// The slice of that surface, with the window's names of levels and groups.
SliceOutput ReadSlice(document::MapWindow &window, diagram::Surface &surface);

// "Levels: A, B. Groups: C.", with "none" for an empty list; "Everything is shown." without a filter. For the
// properties of documents.
QString FilterText(const FilterOutput &filter);

} // namespace output
