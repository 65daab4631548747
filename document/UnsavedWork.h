// Whether a window has something that its map file doesn't hold.
#pragma once

#include "diagram/model/Revision.h"
#include "diagram/model/Surface.h"
#include "support/Colour.h"

#include <QDateTime>
#include <QStringList>
#include <vector>

namespace document {

class MapWindow;

// Enough of what a save would write to tell whether it has changed. Not part of it: zoom, grid, the current
// tab, the selection, the ticks of the filter and what they hide, and keys that every save makes anew.
struct MapState {
    struct Slice {
        int index = 0; // of the surface
        QString caption;
        diagram::Revision revision;
        friend bool operator==(const Slice &, const Slice &) = default;
    };
    struct Level {
        QString name;
        support::Colour colour = 0;
        friend bool operator==(const Level &, const Level &) = default;
    };
    struct Hyperlink {
        QString node, map, destination;
        int slice = 0;
        friend bool operator==(const Hyperlink &, const Hyperlink &) = default;
    };
    struct Attachment {
        QString node, file;
        bool embed = false;
        qint64 size = 0; // of an embedded file, which other programs may write to
        QDateTime modified;
        friend bool operator==(const Attachment &, const Attachment &) = default;
    };
    struct View {
        QString name;
        QStringList levels, groups;
        friend bool operator==(const View &, const View &) = default;
    };
    std::vector<Slice> slices;
    QStringList groups;
    std::vector<Level> levels;
    std::vector<Hyperlink> hyperlinks;
    std::vector<Attachment> attachments;
    std::vector<View> views;
    friend bool operator==(const MapState &, const MapState &) = default;
};

MapState StateOf(MapWindow &frm);

// Remembers the present state as the one without unsaved work: the map was just loaded, saved, or made.
void MarkSaved(MapWindow &frm);
// Whether the map differs from the state that was marked last. Changes that were undone don't count. True for
// a window that was never marked.
bool HasUnsavedWork(MapWindow &frm);
// Whether the user must be asked before the window's content is lost: it has unsaved work, or is Dirty.
bool MustAskBeforeLosing(MapWindow &frm);

} // namespace document
