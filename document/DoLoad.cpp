#include "document/DoLoad.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Routing.h"
#include "document/BusyWindow.h"
#include "document/clsfrmMain.h"
#include "document/DefaultNodes.h"
#include "document/LoadSlice.h"
#include "document/MapRows.h"
#include "document/MapSchema.h"
#include "document/MemoryGuard.h"
#include "document/OpenMap.h"
#include "document/PicturePool.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "document/TemplateFile.h"
#include "document/ViewRows.h"
#include "settings/clsMRU.h"
#include "settings/Settings.h"
#include "storage/Fields.h"
#include "storage/FileForm.h"
#include "support/Files.h"

#include <algorithm>
#include <QHash>

namespace document {

namespace {

using storage::Recordset;

class Loader {
public:
    Loader(MapWindow &window, storage::Database &database)
        : window_(window),
          settings_(window.clsSettings()),
          database_(database),
          rows_(database, settings_),
          pictures_(database),
          memory_(window.Desktop()) {}

    // True when the map was read whole; false when memory ran short.
    bool Run();
    // The slice that stands first; null for a map without slices, or when memory ran short.
    diagram::Surface *RunFirst();

private:
    void UnloadSlices();
    void LoadPools();
    // False when memory ran short.
    bool LoadSlices();
    Recordset SliceRows();
    bool LoadSlice(const Recordset &row, const Columns &at);
    bool FillSlice(diagram::Surface &surface, const Recordset &row, const Columns &at);
    diagram::Surface &PrepareSurface(const Recordset &row, const Columns &at);
    void SetSliceValues(diagram::Surface &surface, const Recordset &row, const Columns &at);
    void FinishSlice(diagram::Surface &surface);
    void AskForCompanion(diagram::Surface &surface);
    void LoadHyperlinks();
    void LoadAttachments();
    void ExtractAttachment(cAttachment &attachment, const Recordset &rows);
    void EndWithoutMemory();

    MapWindow &window_;
    clsfrmMain &settings_;
    storage::Database &database_;
    MapRows rows_;
    PicturePool pictures_;
    MemoryWatch memory_;
};

void UnloadAbove(SurfaceArray &surfaces, int slot) {
    while (surfaces.UBound() > slot) surfaces.Unload(surfaces.UBound());
}

bool Loader::Run() {
    UnloadSlices();
    LoadPools();
    ReadViews(database_, settings_);
    if (!LoadSlices()) {
        EndWithoutMemory();
        return false;
    }
    LoadHyperlinks();
    LoadAttachments();
    return true;
}

diagram::Surface *Loader::RunFirst() {
    LoadPools();
    const Recordset rows = SliceRows();
    if (rows.EndOfFile()) return nullptr;
    const Columns at(rows, schema::kSlices);
    diagram::Surface &surface = PrepareSurface(rows, at);
    if (!FillSlice(surface, rows, at)) return nullptr;
    surface.Routes().Recalculate();
    return &surface;
}

void Loader::UnloadSlices() {
    UnloadAbove(window_.AddFlow1(), 0);
    window_.TabStrip().SetTabCount(1);
    settings_.Hyperlinks().Clear();
    settings_.Attachments().Clear();
    settings_.Views.clear();
}

void Loader::LoadPools() {
    window_.DoStatus(QStringLiteral("Loading Levels..."));
    Recordset levels = database_.OpenRecordset(SelectAll(schema::kLevels));
    settings_.Levels().Clear();
    ReadLevels(std::move(levels), settings_.Levels());
    window_.DoStatus(QStringLiteral("Loading Groups..."));
    Recordset groups = database_.OpenRecordset(SelectAll(schema::kGroups));
    settings_.Groups().Clear();
    ReadGroups(std::move(groups), settings_.Groups());
}

Recordset Loader::SliceRows() {
    return database_.OpenRecordset(SelectAll(schema::kSlices) + QStringLiteral(" ORDER BY ") +
                                   Bracketed(schema::kSlices, schema::slice::kIndex));
}

bool Loader::LoadSlices() {
    Recordset rows = SliceRows();
    const Columns at(rows, schema::kSlices);
    // Slot 0 always exists. It is emptied here if no slice of the map will fill it.
    if (rows.EndOfFile() || rows.Integer(at[schema::slice::kIndex]) != 0) window_.AddFlow1()[0].Reset();
    for (; !rows.EndOfFile(); rows.MoveNext())
        if (memory_.IsShort() || !LoadSlice(rows, at)) return false;
    return true;
}

// Makes the slice's surface and tab, which are there already for index 0, and gives the surface. Indexes of
// slices may have gaps; tabs don't.
diagram::Surface &Loader::PrepareSurface(const Recordset &row, const Columns &at) {
    const int index = row.Integer(at[schema::slice::kIndex]);
    Tabs &tabs = window_.TabStrip();
    if (index > 0) {
        window_.AddFlow1().Load(index);
        tabs.SetTabCount(tabs.TabCount() + 1);
        tabs.SetTheTab(std::min(index, tabs.TabCount() - 1));
    }
    tabs.SetCaption(row.Text(at[schema::slice::kText]));
    return window_.AddFlow1()[index];
}

void Loader::SetSliceValues(diagram::Surface &surface, const Recordset &row, const Columns &at) {
    using namespace schema::slice;
    surface.SetBackColor(row.Long(at[kBackColor]));
    surface.SetGridLines(row.Boolean(at[kGridLines]));
    const int timeline = at[kTimeline];
    SetTag(surface, tags::kTimelineAlign,
           row.IsNull(timeline) ? QString() : QString::number(row.Integer(timeline)));
    SetTag(surface, tags::kMissing,
           row.Boolean(at[kIncMissing]) ? QStringLiteral("True") : QStringLiteral("False"));
    surface.SetPicture(pictures_.Load(row.Text(at[kPicture])));
    surface.Nodes().Clear();
}

bool Loader::LoadSlice(const Recordset &row, const Columns &at) {
    diagram::Surface &surface = PrepareSurface(row, at);
    LoadDefaults(surface);
    if (!FillSlice(surface, row, at)) return false;
    surface.SetxZoom(row.Long(at[schema::slice::kxZoom]));
    surface.SetyZoom(row.Long(at[schema::slice::kyZoom]));
    FinishSlice(surface);
    return true;
}

// False when memory ran short.
bool Loader::FillSlice(diagram::Surface &surface, const Recordset &row, const Columns &at) {
    SetSliceValues(surface, row, at);
    SliceLoader slice(window_, surface, rows_, pictures_, memory_);
    if (!slice.LoadNodes()) return false;
    slice.LoadLinks();
    slice.Stack();
    return true;
}

void Loader::FinishSlice(diagram::Surface &surface) {
    surface.Routes().Recalculate();
    window_.AddFlow1_AfterMove(surface.Index());
    surface.UnselectAll();
    window_.ClickTab();
    AskForCompanion(surface);
    surface.Actions().Forget();
}

void Loader::AskForCompanion(diagram::Surface &surface) {
    const QString path = CompanionFile(settings_.Database(), surface.Index());
    if (!support::FileExists(path)) return;
    const support::Answer answer =
        window_.Desktop().messageBoxes.Show(QStringLiteral("Does this look right?"), support::Buttons::YesNo,
                                            support::Icon::None, settings::Terms().TITLE);
    if (answer != support::Answer::No) return;
    surface.Nodes().Clear();
    diagram::LoadFile(surface, path);
}

void Loader::LoadHyperlinks() {
    window_.DoStatus(QStringLiteral("Loading Hyperlinks..."));
    Recordset rows = database_.OpenRecordset(SelectAll(schema::kHyperlinks));
    const Columns at(rows, schema::kHyperlinks);
    using namespace schema::hyperlink;
    settings_.Hyperlinks().Clear();
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        QString key = rows.Text(at[kNodeKey]);
        cHyperlink &hyperlink = settings_.Hyperlinks().add(key);
        hyperlink.Node = rows.Text(at[kNodeKey]);
        hyperlink.Map = rows.Text(at[kFilename]);
        hyperlink.Slice = rows.Integer(at[kSlice]);
        // A hyperlink to another map has an index there, which may lie beyond the tabs of this one.
        const int tab = hyperlink.Slice - 1;
        if (tab >= 0 && tab < window_.TabStrip().TabCount())
            hyperlink.SliceKey = window_.TabStrip().TabKey(tab);
        hyperlink.DestNode = rows.Text(at[kNode]);
    }
}

void Loader::LoadAttachments() {
    window_.DoStatus(QStringLiteral("Loading Attachments..."));
    Recordset rows = database_.OpenRecordset(SelectAll(schema::kAttachments));
    const Columns at(rows, schema::kAttachments);
    using namespace schema::attachment;
    settings_.Attachments().Clear();
    settings_.AttachmentFolder().Clear();
    QHash<QStringList, int> seen;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        QString key;
        cAttachment &attachment = settings_.Attachments().add(key);
        attachment.Filename = rows.Text(at[kFilename]);
        attachment.Embed = rows.Boolean(at[kEmbed]);
        attachment.Node = rows.Text(at[kNodeKey]);
        attachment.Stored = {settings_.Database(), rows.Text(at[kKey]), attachment.Node, attachment.Filename};
        const StoredAttachment &stored = attachment.Stored;
        attachment.Stored.Position = seen[{stored.Key, stored.NodeKey, stored.Filename}]++;
        if (attachment.Embed) ExtractAttachment(attachment, rows);
    }
}

// Only the file title of the stored path counts, so that a map cannot write anywhere else. An attachment with
// neither a name nor bytes is one for which no file was chosen.
void Loader::ExtractAttachment(cAttachment &attachment, const Recordset &rows) {
    const int data = rows.Column(NameOf(schema::kAttachments, schema::attachment::kData));
    if (attachment.Filename.isEmpty() && rows.Bytes(data).isEmpty()) return;
    attachment.Filename = settings_.AttachmentFolder().NewPath(attachment.Filename);
    storage::WriteFileFromField(attachment.Filename, rows,
                                NameOf(schema::kAttachments, schema::attachment::kData));
}

void Loader::EndWithoutMemory() {
    ShowMemoryText(window_.Desktop());
    window_.DoResize();
    window_.DoStatus(QString());
    window_.SetProgress(0);
    window_.DrawMenuBar();
}

// Unless the load ends well, the window holds a part of a map, which must not be saved over the file: it
// loses its path.
class UnlessWhole {
public:
    explicit UnlessWhole(MapWindow &window) : window_(window), wasDirty_(window.clsSettings().Dirty) {}
    ~UnlessWhole() {
        if (!whole_) support::Report("frmMain", "DoLoad", [this] { PartWithFile(); });
    }
    UnlessWhole(const UnlessWhole &) = delete;
    UnlessWhole &operator=(const UnlessWhole &) = delete;

    void Dismiss() { whole_ = true; }

private:
    void PartWithFile() {
        window_.clsSettings().SetDatabase(QString());
        window_.SetWindowCaption(UntitledCaption());
        window_.LoadCombos();
        window_.clsSettings().Dirty = wasDirty_; // the slices that were read have set it
        MarkSaved(window_);
    }

    MapWindow &window_;
    bool wasDirty_, whole_ = false;
};

void ShowLoaded(MapWindow &window) {
    window.LoadCombos();
    window.DoResize();
    window.DoStatus(QString());
    window.SetProgress(0);
    window.TabStrip().SetTheTab(0);
}

void EndWell(MapWindow &window) {
    clsfrmMain &settings = window.clsSettings();
    ShowLoaded(window);
    window.SetWindowCaption(CaptionFor(settings.Database()));
    settings.Dirty = false;
    MarkSaved(window);
    settings::clsMRU(window.Desktop().registry).AddFile(settings.Database());
}

// As for a map that has no file yet.
void EndAsNew(MapWindow &window) {
    clsfrmMain &settings = window.clsSettings();
    ShowLoaded(window);
    for (cAttachment &attachment : settings.Attachments()) attachment.Stored = {};
    settings.OwnFiles().Forget(settings.Database());
    settings.SetDatabase(QString());
    settings.Dirty = true;
}

void LoadMap(MapWindow &window, storage::Database database, void (*end)(MapWindow &) = EndWell) {
    clsfrmMain &settings = window.clsSettings();
    const bool isNative = database.IsNative();
    {
        const BusyWindow busy(window);
        window.DoEvents();
        settings.SetDatabase(database.Name());
        settings.OwnFiles().Forget(settings.Database());
        settings.OwnFiles().Saw(settings.Database());
        UnlessWhole untitled(window);
        if (!Loader(window, database).Run()) return;
        database.Close();
        untitled.Dismiss();
        if (isNative) settings.OwnFiles().Add(settings.Database());
        end(window);
    }
    window.RefreshMainControls();
}

} // namespace

QString CaptionFor(const QString &path) {
    return settings::Terms().TITLE + QStringLiteral(" - ") + support::GetFileTitle(path, true);
}

QString UntitledCaption() { return QStringLiteral("Untitled - ") + settings::Terms().TITLE; }

QString CompanionFile(const QString &path, int slice) {
    return path + QString::number(slice) + QStringLiteral(".tlt");
}

void LoadDiagramFile(MapWindow &frm, const QString &path) {
    SurfaceArray &surfaces = frm.AddFlow1();
    UnloadAbove(surfaces, 1);
    diagram::LoadFile(surfaces[surfaces.UBound()], path);
    frm.clsSettings().SetDatabase(QString());
}

diagram::Surface *ReadFirstSlice(MapWindow &frm, storage::Database &database) {
    return support::PassOn("ReadFirstSlice", [&] { return Loader(frm, database).RunFirst(); });
}

void LoadAsNew(MapWindow &frm, const QString &path, const QString &caption) {
    support::PassOn("DoLoad", [&] {
        QString file = path;
        std::optional<storage::Database> database = OpenMap(file, false);
        if (!database) return;
        LoadMap(frm, std::move(*database), EndAsNew);
        frm.clsSettings().SetDatabase(QString());
        frm.clsSettings().ForgetLastDatabase();
        frm.SetWindowCaption(caption);
    });
}

bool LoadToRead(MapWindow &frm, const QString &path) {
    return support::PassOn("DoLoad", [&] {
        QString file = path;
        const bool isNative = storage::RecogniseFile(path) == storage::FileForm::Native;
        // A Jet file is read into a copy, which opening brings up to date.
        std::optional<storage::Database> database = isNative ? OpenMapToRead(file) : OpenMap(file, false);
        if (!database) return false;
        frm.clsSettings().SetDatabase(database->Name());
        return Loader(frm, *database).Run();
    });
}

bool DoLoad(MapWindow &frm) {
    return support::PassOn("DoLoad", [&] {
        QString path = frm.clsSettings().Database();
        std::optional<storage::Database> database = OpenMap(path, false);
        if (database)
            LoadMap(frm, std::move(*database));
        else if (!frm.clsSettings().Database().isEmpty())
            LoadDiagramFile(frm, frm.clsSettings().Database());
        return false;
    });
}

} // namespace document
