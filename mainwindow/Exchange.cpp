#include "mainwindow/Exchange.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "document/LastPath.h"
#include "document/Tags.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/LongTask.h"
#include "mainwindow/ShowForm.h"
#include "mainwindow/WindowStatus.h"
#include "output/csv/ExportMap.h"
#include "output/csv/ImportMap.h"
#include "output/export/clsExport.h"
#include "output/mapimport/DoImportMap.h"
#include "output/powerpoint/PowerPointForm.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "timeline/PrepFileForImport.h"

#include <optional>
#include <QCoreApplication>
#include <QDir>

namespace mainwindow {

namespace {

using document::pointer::kNormal;
using support::Answer;

constexpr long kImportFlags = support::fileflags::kFileMustExist | support::fileflags::kHideReadOnly;
constexpr long kExportFlags = support::fileflags::kPathMustExist | support::fileflags::kOverwritePrompt;

QString Tr(const char *text) { return QCoreApplication::translate("Exchange", text); }

// The rows of the file dialogs, counted from 1 in their order.
enum ImportRow { kMapRow = 1, kFlatRow, kCsvRow };
enum ExportRow { kFlatOut = 1, kCsvOut, kRichTextOut, kHtmlOut, kPresentationOut };

QString FlatFileRow() {
    const settings::ProductTerms &terms = settings::Terms();
    return QStringLiteral("%1|*.%2").arg(terms.FLAT, terms.FLATEXT);
}

QString ImportFilter() {
    const settings::ProductTerms &terms = settings::Terms();
    return QStringLiteral("%1 Files|*.%2|%3|Text File (CSV)|*.csv").arg(terms.MAP, terms.EXT, FlatFileRow());
}

QString ExportFilter() {
    return FlatFileRow() +
           QStringLiteral("|Text File (CSV)|*.csv|Rich Text Format|*.rtf"
                          "|HTML Files|*.htm;*.html|Microsoft PowerPoint Presentation|*.ppt;*.pptx");
}

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

// Reads the file into the surface. False when it was given up.
using Reading = std::function<bool(diagram::Surface &flow)>;

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

void ReadWhereAsked(frmMain &window, const Reading &read) {
    const Answer answer = AskReplaceOrNew(window);
    if (answer == Answer::Yes) ReadInPlace(window, read);
    if (answer == Answer::No) ReadIntoNewSlice(window, read);
}

// Runs `work`, handing it the function by which it asks whether to go on. The LongTask begins with the first
// question, so that what comes before may show message boxes; later no input would reach them.
template <typename Work>
auto RunLong(frmMain &window, const QString &doing, LongTask::Bar bar, Work &&work) {
    std::optional<LongTask> task;
    return work([&] {
        if (!task) task.emplace(window, doing, bar);
        return task->GoOn();
    });
}

void ImportCsv(frmMain &window, const QString &file) {
    bool givenUp = false;
    window.DoStatus(output::NotInTextFiles());
    ReadWhereAsked(window, [&](diagram::Surface &flow) {
        givenUp = !RunLong(window, Tr("Importing"), LongTask::Bar::ByWork, [&](const output::GoOn &goOn) {
            return output::ImportMap(window, flow, file, goOn);
        });
        return !givenUp;
    });
    if (!givenUp) window.DoStatus(QString()); // else the LongTask has said so
}

void ImportFlatFile(frmMain &window, const QString &file) {
    ReadWhereAsked(window, [&](diagram::Surface &flow) {
        const QByteArray bytes = support::ReadWholeFile(file);
        diagram::ReplaceBytes(flow, timeline::PrepBytesForImport(bytes, window));
        window.clsSettings().Dirty = true;
        return true;
    });
}

void ImportWholeMap(frmMain &window, const QString &file) {
    QStringList missing;
    RunLong(window, Tr("Importing"), LongTask::Bar::ByTime,
            [&](const output::GoOn &goOn) { return output::BringMap(window, file, goOn, missing); });
    output::TellWhatIsMissing(window, missing);
}

void ExportCsv(frmMain &window, const QString &file) {
    if (RunLong(window, Tr("Exporting"), LongTask::Bar::ByWork, [&](const output::GoOn &goOn) {
            return output::ExportMap(window, window.CurrentSurface(), file, {}, goOn);
        }))
        window.Status().TellInPassing(output::NotInTextFiles());
}

void ExportReport(frmMain &window, const QString &file) {
    output::clsExport report{window, window.CurrentSurface(), file};
    ShowForm(window, report, Tr("Exporting reports"));
}

void ExportFlatFile(frmMain &window, const QString &file) {
    diagram::SaveFile(window.CurrentSurface(), file);
    TellWritten(window, file);
}

void ExportPresentation(frmMain &window, const QString &file) {
    powerpoint::PowerPointArgument argument{window, file};
    ShowForm(window, argument, Tr("Exporting presentations"));
}

constexpr char kExportFolder[] = "ExportFolder";
constexpr char kExportRow[] = "ExportRow";

// The folder of the last export, else that of the map, and the map's name without its ending.
QString PlaceToExport(frmMain &window) {
    const QString beside = PlaceBeside(window, QString());
    const QString folder = settings::GetSet(QLatin1String(kExportFolder));
    if (folder.isEmpty() || !support::DirExists(folder)) return beside;
    return support::AddBackslash(folder) + beside.mid(support::LastSeparator(beside) + 1);
}

int LastExportRow() {
    const int row = settings::GetSet(QLatin1String(kExportRow)).toInt();
    return row >= kFlatOut && row <= kPresentationOut ? row : kPresentationOut;
}

void RememberExport(const QString &file, int row) {
    settings::SaveSet(QLatin1String(kExportFolder), file.left(support::LastSeparator(file)));
    settings::SaveSet(QLatin1String(kExportRow), QString::number(row));
}

using FileRoutine = void (*)(frmMain &, const QString &);
constexpr FileRoutine kImports[] = {ImportWholeMap, ImportFlatFile, ImportCsv};
constexpr FileRoutine kExports[] = {ExportFlatFile, ExportCsv, ExportReport, ExportReport,
                                    ExportPresentation};

template <std::size_t Size>
void RunRow(const FileRoutine (&rows)[Size], int row, frmMain &window, const QString &file) {
    if (!file.isEmpty() && row >= 1 && row <= int(Size)) rows[row - 1](window, file);
}

} // namespace

QString PlaceBeside(frmMain &window, const QString &ending) {
    const QString map = window.clsSettings().ShownFile();
    const QString name = support::FileTitle(map);
    QString place = document::PlaceToSave(map);
    if (name.isEmpty()) return place;
    if (const qsizetype dot = name.lastIndexOf(u'.'); dot > 0) place.chop(name.size() - dot);
    return place + ending;
}

void TellWritten(frmMain &window, const QString &file) {
    window.Status().TellInPassing(Tr("%1 was written.").arg(QDir::toNativeSeparators(file)));
}

void mnuFileImport(frmMain &window) {
    window.SetMousePointer(kNormal);
    int row = kMapRow;
    const QString file = window.Desktop().dialogs.ShowOpenFileDialog(
        ImportFilter(), settings::Terms().FLATEXT, document::LastPath(), kImportFlags, &window, row);
    RunRow(kImports, row, window, file);
}

void mnuFileExport(frmMain &window) {
    window.SetMousePointer(kNormal);
    int row = LastExportRow();
    const QString file = window.Desktop().dialogs.ShowSaveFileDialog(
        ExportFilter(), settings::Terms().FLATEXT, PlaceToExport(window), kExportFlags, &window, row);
    if (!file.isEmpty()) RememberExport(file, row);
    RunRow(kExports, row, window, file);
}

} // namespace mainwindow
