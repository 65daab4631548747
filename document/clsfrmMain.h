// The state of one document window besides its surfaces.
#pragma once

#include "document/AttachmentFolder.h"
#include "document/cAttachments.h"
#include "document/cGroups.h"
#include "document/cHyperlinks.h"
#include "document/cLevels.h"
#include "document/FilterViews.h"
#include "document/OwnFiles.h"
#include "document/UnsavedWork.h"

#include <optional>
#include <QString>

namespace document {

// Says that the pools are to start empty.
struct EmptyPools {};

class clsfrmMain {
public:
    // Levels and groups start with those of template.tpl. Error 3024 when that file is missing.
    clsfrmMain();
    explicit clsfrmMain(EmptyPools) {}
    clsfrmMain(const clsfrmMain &) = delete;
    clsfrmMain &operator=(const clsfrmMain &) = delete;

    cHyperlinks &Hyperlinks() { return hyperlinks_; }
    cAttachments &Attachments() { return attachments_; }
    cGroups &Groups() { return groups_; }
    cLevels &Levels() { return levels_; }

    // Set by commands that change the map and cleared by loading and saving. HasUnsavedWork (UnsavedWork.h)
    // finds changes that it misses.
    bool Dirty = false;
    // The state of the map when it was last loaded or saved; none before MarkSaved was called
    // (UnsavedWork.h).
    std::optional<MapState> SavedState;

    // The named views of the map, in the order of their making.
    FilterViews Views;

    // Full path of the map file; empty for a map that was not saved yet. The file itself isn't kept open.
    const QString &Database() const { return database_; }
    // Stores the long form of the path.
    void SetDatabase(const QString &path);
    // The last path that Database had: a save that asks for a name begins with it.
    const QString &LastDatabase() const { return lastDatabase_; }
    void ForgetLastDatabase() { lastDatabase_.clear(), showsLast_ = false; }
    // The file whose map the window shows: Database, or the last one where opening another map in its place
    // has failed before anything was read. Empty for none.
    QString ShownFile() const { return showsLast_ ? lastDatabase_ : database_; }
    // Database becomes empty, and the window still shows the map of `former`, if that isn't empty.
    void KeepFormer(const QString &former);

    // The folder of this window for the files of embedded attachments.
    document::AttachmentFolder &AttachmentFolder() { return attachmentFolder_; }
    // The files that this window may save over without keeping a copy of them.
    document::OwnFiles &OwnFiles() { return ownFiles_; }

private:
    cHyperlinks hyperlinks_;
    cAttachments attachments_;
    cGroups groups_;
    cLevels levels_;
    QString database_, lastDatabase_;
    bool showsLast_ = false;
    document::AttachmentFolder attachmentFolder_;
    document::OwnFiles ownFiles_;
};

} // namespace document
