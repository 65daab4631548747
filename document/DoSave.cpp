#include "document/DoSave.h"

#include "diagram/format/SurfaceFile.h"
#include "document/BusyWindow.h"
#include "document/clsfrmMain.h"
#include "document/CompactDb.h"
#include "document/DoLoad.h"
#include "document/LastPath.h"
#include "document/MapSchema.h"
#include "document/OpenMap.h"
#include "document/SaveRows.h"
#include "document/SurfaceArray.h"
#include "document/TemplateFile.h"
#include "settings/clsMRU.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Files.h"

#include <QFile>

namespace document {

namespace {

bool writesCompanions = false;

// Puts back the path and the selected tab, unless the save succeeds and dismisses it.
class Rollback {
public:
    explicit Rollback(MapWindow &window)
        : window_(window),
          database_(window.clsSettings().Database()),
          shown_(window.clsSettings().ShownFile()),
          tab_(window.TabStrip().TheTab()) {}
    ~Rollback() {
        if (done_) return;
        if (database_.isEmpty())
            window_.clsSettings().KeepFormer(shown_);
        else
            window_.clsSettings().SetDatabase(database_);
        support::Report("frmMain", "TheTab", [&] { PutTabBack(); });
    }
    Rollback(const Rollback &) = delete;
    Rollback &operator=(const Rollback &) = delete;

    void PutTabBack() { window_.TabStrip().SetTheTab(tab_); }
    void Dismiss() { done_ = true; }

private:
    MapWindow &window_;
    QString database_, shown_;
    int tab_;
    bool done_ = false;
};

// The order is kept as it always was, and so is the second turn for the fonts, which finds no rows.
void EmptyTables(storage::Database &database) {
    using namespace schema;
    for (const TableLayout *table : {&kNodes, &kLinks, &kLinkPoints, &kSlices, &kFonts, &kGroups, &kLevels,
                                     &kPictures, &kFonts, &kAttachments, &kHyperlinks})
        database.Execute(QStringLiteral("DELETE FROM [%1]").arg(NameOf(*table)), storage::kFailOnError);
}

void WriteSlices(MapWindow &window, RowWriter &writer) {
    int tab = 0; // where indexes have gaps the tabs have none
    for (const int index : window.AddFlow1().Indices()) {
        diagram::Surface &surface = window.AddFlow1()[index];
        window.TabStrip().SetTheTab(tab++);
        window.DoStatus(QStringLiteral("Saving slice name..."));
        writer.WriteSlice(surface, window.TabStrip().Caption());
        if (writesCompanions)
            diagram::SaveFile(surface, CompanionFile(window.clsSettings().Database(), index));
    }
}

void WritePools(MapWindow &window, RowWriter &writer) {
    window.DoStatus(QStringLiteral("Saving Groups..."));
    writer.WriteGroups();
    window.DoStatus(QStringLiteral("Saving Levels..."));
    writer.WriteLevels();
    window.DoStatus(QStringLiteral("Saving HyperLinks..."));
    writer.WriteHyperlinks();
    writer.WriteAttachments();
    writer.WriteViews();
}

// Writes the whole map into the new file at `path`, which isn't in its place yet.
void BuildMap(MapWindow &window, const QString &path, Rollback &rollback) {
    storage::Database database = storage::OpenForBuilding(path);
    UpgradeMap(database);
    database.BeginTrans();
    EmptyTables(database);
    {
        RowWriter writer(database, window);
        writer.WriteSettings();
        WriteSlices(window, writer);
        rollback.PutTabBack();
        WritePools(window, writer);
    }
    database.CommitTrans(storage::kForceFlush);
    database.Close();
}

// A copy of the file that is about to be replaced, if that isn't one of the window's own files. The copy is
// deleted again unless it is released.
class KeptFile {
public:
    KeptFile(clsfrmMain &settings, const QString &target) {
        if (support::FileExists(target) && !settings.OwnFiles().Contains(settings.Database()))
            path_ = KeepBeside(target);
    }
    ~KeptFile() {
        if (!path_.isEmpty()) QFile::remove(path_);
    }
    KeptFile(const KeptFile &) = delete;
    KeptFile &operator=(const KeptFile &) = delete;

    QString Release() { return std::exchange(path_, QString()); }

private:
    QString path_;
};

// From now on the file has the bytes of the embedded attachments.
void NoteStored(clsfrmMain &settings) {
    for (cAttachment &attachment : settings.Attachments())
        attachment.Stored = {settings.Database(), attachment.Key, attachment.Node, attachment.Filename, 0};
}

// Writes the file and swaps it in; gives the path of the former file if that was kept.
QString WriteMap(MapWindow &window, const QString &path, Rollback &rollback) {
    clsfrmMain &settings = window.clsSettings();
    support::AtomicFile file(path);
    support::SweepNewFiles(path);
    file.Write(support::ReadWholeFile(TemplatePath()));
    settings.SetDatabase(path);
    BuildMap(window, file.Path(), rollback);
    KeptFile kept(settings, file.Target());
    file.Commit();
    settings.OwnFiles().Add(settings.Database());
    NoteStored(settings);
    return kept.Release();
}

void ShowSaved(MapWindow &window, Rollback &rollback) {
    window.DoStatus(QString());
    window.SetProgress(0);
    window.SetWindowCaption(CaptionFor(window.clsSettings().Database()));
    window.clsSettings().Dirty = false;
    MarkSaved(window);
    rollback.PutTabBack();
    rollback.Dismiss();
}

void Save(MapWindow &window, const QString &path) {
    clsfrmMain &settings = window.clsSettings();
    const BusyWindow busy(window);
    Rollback rollback(window);
    window.DoStatus(QStringLiteral("Preparing to save..."));
    const QString kept = WriteMap(window, path, rollback);
    ShowSaved(window, rollback);
    window.DoStatus(QStringLiteral("Optimizing File..."));
    CompactDb(window, settings.Database(), false, QString());
    settings.OwnFiles().Add(settings.Database());
    settings::clsMRU(window.Desktop().registry).AddFile(settings.Database());
    window.DoStatus(QString());
    if (!kept.isEmpty())
        window.DoStatus(QStringLiteral("The former file was kept as %1").arg(support::FileTitle(kept)));
}

// Whether a file that somebody else has written to since it was opened, another program or window, may be
// written over.
bool MayOverwrite(MapWindow &window, const QString &path) {
    if (!window.clsSettings().OwnFiles().ChangedSinceSeen(path)) return true;
    window.SetMousePointer(pointer::kNormal);
    return window.Desktop().messageBoxes.Show(
               QStringLiteral("%1 was changed outside of this window since it was opened.\r\n\r\n"
                              "Do you want to save over those changes?")
                   .arg(support::FileTitle(path)),
               support::Buttons::YesNo, support::Icon::Question, settings::Terms().TITLE,
               support::EnterPresses::No) == support::Answer::Yes;
}

} // namespace

void SetWritesCompanions(bool on) { writesCompanions = on; }

bool DoSave(MapWindow &frm) {
    return support::PassOn("DoSave", [&] {
        QString path = frm.clsSettings().Database();
        const bool asked = path.isEmpty(); // the dialog asks about a file that is there
        if (asked) path = GetMapFile(true, frm.clsSettings().LastDatabase());
        if (path.isEmpty() || (!asked && !MayOverwrite(frm, path))) return false;
        Save(frm, path);
        return true;
    });
}

} // namespace document
