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

// What a save would write, as far as it takes to tell whether it is the same. Zoom, grid, the current tab,
// the selection, and the ticks of the filter with what they hide are left out, and so are keys that every
// save makes anew.
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

// The window holds what its file holds, from now on: it was just loaded, saved, or made.
void MarkSaved(MapWindow &frm);
// Whether a save would write anything else than what was there when the window was marked last. Undoing all
// changes is no difference. True for a window that was never marked.
bool HasUnsavedWork(MapWindow &frm);
// Whether the user must be asked before the window's content is lost: it has unsaved work, or is Dirty.
bool MustAskBeforeLosing(MapWindow &frm);

} // namespace document
