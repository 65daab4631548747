#include "mainwindow/commands/Exchange.h"

#include "diagram/format/SurfaceFile.h"
#include "document/LastPath.h"
#include "mainwindow/commands/ImportTarget.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/window/LongTask.h"
#include "mainwindow/window/ShowForm.h"
#include "mainwindow/window/WindowStatus.h"
#include "output/csv/ExportMap.h"
#include "output/csv/ImportMap.h"
#include "output/export/clsExport.h"
#include "output/mapimport/DoImportMap.h"
#include "output/powerpoint/PowerPointForm.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "timeline/PrepFileForImport.h"

#include <optional>
#include <QCoreApplication>
#include <QDir>

namespace mainwindow {

namespace {

using document::pointer::kNormal;

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
