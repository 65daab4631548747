#include "document/UnsavedWork.h"

#include "diagram/model/Actions.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"

#include <QFileInfo>

namespace document {

namespace {

std::vector<MapState::Slice> SlicesOf(MapWindow &frm) {
    std::vector<MapState::Slice> slices;
    int tab = 0; // where indexes have gaps the tabs have none
    for (const int index : frm.AddFlow1().Indices()) {
        const bool hasTab = tab < frm.TabStrip().TabCount();
        slices.push_back({index, hasTab ? frm.TabStrip().TabCaption(tab) : QString(),
                          frm.AddFlow1()[index].Actions().Revision()});
        ++tab;
    }
    return slices;
}

MapState::Attachment StateOf(const cAttachment &attachment) {
    MapState::Attachment state{attachment.Node, attachment.Filename, attachment.Embed, 0, {}};
    if (!attachment.Embed) return state;
    const QFileInfo file(attachment.Filename);
    state.size = file.size();
    state.modified = file.lastModified();
    return state;
}

} // namespace

MapState StateOf(MapWindow &frm) {
    clsfrmMain &settings = frm.clsSettings();
    MapState state;
    state.slices = SlicesOf(frm);
    for (const cGroup &group : settings.Groups()) state.groups.append(group.GroupName);
    for (const cLevel &level : settings.Levels()) state.levels.push_back({level.LevelName, level.Color});
    for (const cHyperlink &hyperlink : settings.Hyperlinks())
        state.hyperlinks.push_back({hyperlink.Node, hyperlink.Map, hyperlink.DestNode, hyperlink.Slice});
    for (const cAttachment &attachment : settings.Attachments())
        state.attachments.push_back(StateOf(attachment));
    for (const FilterView &view : settings.Views)
        state.views.push_back({view.Name, LevelNames(settings, view), GroupNames(settings, view)});
    return state;
}

void MarkSaved(MapWindow &frm) { frm.clsSettings().SavedState = StateOf(frm); }

bool HasUnsavedWork(MapWindow &frm) {
    const std::optional<MapState> &saved = frm.clsSettings().SavedState;
    return !saved || *saved != StateOf(frm);
}

bool MustAskBeforeLosing(MapWindow &frm) { return frm.clsSettings().Dirty || HasUnsavedWork(frm); }

} // namespace document
