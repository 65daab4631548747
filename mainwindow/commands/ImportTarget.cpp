#include "mainwindow/commands/ImportTarget.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "document/Tags.h"
#include "mainwindow/frmMain.h"
#include "settings/Settings.h"
#include "support/Error.h"

namespace mainwindow {

namespace {

using support::Answer;

Answer AskReplaceOrNew(frmMain &window) {
    const QString &map = settings::Terms().MAP;
    return window.Desktop().messageBoxes.Show(
        QStringLiteral("Would you like to REPLACE the existing map or create a NEW %1 to import into?\r\r"
                       "YES to REPLACE\rNO to import into a NEW %1\rCANCEL to Cancel")
            .arg(map),
        support::Buttons::YesNoCancel, support::Icon::Question, QStringLiteral("Import ") + map);
}

// Empties the current slice, for what takes the place of all that it holds. Unless Done is called, the
// destructor puts everything back.
class Replacement {
public:
    explicit Replacement(frmMain &window)
        : settings_(window.clsSettings()),
          surface_(window.CurrentSurface()),
          before_(diagram::SaveBytes(surface_)),
          revision_(surface_.Actions().Revision()),
          wasDirty_(settings_.Dirty) {
        document::BeginAction(surface_);
        surface_.Nodes().Clear();
    }
    ~Replacement() {
        if (done_)
            surface_.EndAction();
        else
            support::Report("frmMain", "mnuFileImport", [this] { TakeBack(); });
    }
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;

    diagram::Surface &Surface() const { return surface_; }
    void Done() { done_ = true; }

private:
    // A surface file replaces all items outside of the step, so that cancelling it isn't enough.
    void TakeBack() {
        surface_.Actions().Cancel();
        if (diagram::SaveBytes(surface_) != before_) {
            diagram::LoadBytes(surface_, before_);
            surface_.Actions().SetRevision(revision_);
        }
        settings_.Dirty = wasDirty_;
    }

    document::clsfrmMain &settings_;
    diagram::Surface &surface_;
    QByteArray before_;
    diagram::Revision revision_;
    bool wasDirty_;
    bool done_ = false;
};

void ReadInPlace(frmMain &window, const Reading &read) {
    Replacement replacement(window);
    if (read(replacement.Surface())) replacement.Done();
}

// Inserts a slice behind all others, which the user names or gives up. Unless Done is called, the destructor
// takes it away again.
class NewSlice {
public:
    explicit NewSlice(frmMain &window)
        : window_(window),
          tab_(window.TabStrip().TheTab()),
          tabs_(window.TabStrip().TabCount()),
          wasDirty_(window.clsSettings().Dirty) {
        window.DoInsertSlice();
        if (IsThere()) window.TabStrip().SetTheTab(window.TabStrip().TabCount() - 1);
    }
    ~NewSlice() {
        if (!done_ && IsThere()) support::Report("frmMain", "mnuFileImport", [this] { TakeBack(); });
    }
    NewSlice(const NewSlice &) = delete;
    NewSlice &operator=(const NewSlice &) = delete;

    bool IsThere() const { return window_.TabStrip().TabCount() > tabs_; }
    void Done() { done_ = true; }

private:
    void TakeBack() {
        window_.TabStrip().SetTheTab(tab_);
        window_.AddFlow1().Unload(window_.AddFlow1().UBound());
        window_.TabStrip().SetTabCount(tabs_);
        window_.clsSettings().Dirty = wasDirty_;
    }

    frmMain &window_;
    int tab_, tabs_;
    bool wasDirty_;
    bool done_ = false;
};

void ReadIntoNewSlice(frmMain &window, const Reading &read) {
    NewSlice slice(window);
    if (!slice.IsThere()) return;
    if (read(window.CurrentSurface())) slice.Done();
}

} // namespace

void ReadWhereAsked(frmMain &window, const Reading &read) {
    const Answer answer = AskReplaceOrNew(window);
    if (answer == Answer::Yes) ReadInPlace(window, read);
    if (answer == Answer::No) ReadIntoNewSlice(window, read);
}

} // namespace mainwindow
