// The current slice as a picture file.
#include "diagram/export/PictureKinds.h"
#include "mainwindow/commands/Exchange.h"
#include "mainwindow/forms/PictureChoice.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/window/LongTask.h"
#include "mainwindow/window/ShowForm.h"
#include "settings/GetSet.h"
#include "support/Files.h"

#include <optional>
#include <QCoreApplication>

namespace mainwindow {

namespace {

using diagram::PictureFormat;

QString Tr(const char *text) { return QCoreApplication::translate("ExportPicture", text); }

constexpr char kLastRow[] = "PictureRow";
constexpr long kFlags = support::fileflags::kPathMustExist | support::fileflags::kOverwritePrompt;

QString EndingOf(PictureFormat format) { return u'.' + QLatin1String(diagram::KindOf(format).ending); }

// The rows of the file dialog.
QString Filter() {
    QStringList rows;
    for (const diagram::PictureKind *kind : diagram::OfferedPictures())
        rows << QLatin1String(kind->caption) << u'*' + EndingOf(kind->format);
    return rows.join(u'|');
}

// Rows count from 1; none for another number.
std::optional<PictureFormat> FormatOfRow(int row) {
    const auto offered = diagram::OfferedPictures();
    if (row < 1 || row > int(offered.size())) return std::nullopt;
    return offered[std::size_t(row) - 1]->format;
}

int LastRow() {
    const int row = settings::GetSet(QLatin1String(kLastRow)).toInt();
    return FormatOfRow(row) ? row : 1;
}

bool MayReplace(frmMain &window, const QString &file) {
    if (!support::FileExists(file)) return true;
    return window.Desktop().messageBoxes.Show(
               Tr("%1 already exists.\r\nDo you want to replace it?").arg(support::FileTitle(file)),
               support::Buttons::YesNo, support::Icon::Question, Tr("Export as Picture"),
               support::EnterPresses::No) == support::Answer::Yes;
}

// The file with the ending of `format` where it has none of a picture; a metafile may have any. Empty when
// the user keeps a file that has that name.
QString NamedFor(frmMain &window, const QString &file, PictureFormat format) {
    if (format == PictureFormat::Wmf || diagram::KindOfFile(file)) return file;
    const QString named = file + EndingOf(format);
    return MayReplace(window, named) ? named : QString();
}

// False when it was given up.
bool Write(frmMain &window, const QString &file, const PictureFormArgument &argument) {
    LongTask task(window, Tr("Exporting the picture"));
    diagram::ExportOptions options = OptionsOf(argument.choice, argument.format);
    options.goOn = [&task] { return task.GoOn(); };
    return diagram::ExportPictureFile(window.CurrentSurface(), file, options);
}

bool AskAndWrite(frmMain &window, const QString &file, PictureFormat format) {
    PictureFormArgument argument{format, diagram::PictureSize(window.CurrentSurface()), LoadPictureChoice()};
    if (!ShowForm(window, argument, Tr("Exporting pictures"))) return false;
    SavePictureChoice(argument.choice);
    return Write(window, file, argument);
}

// Whether the file was written.
bool Export(frmMain &window, const QString &file, PictureFormat ofRow) {
    const diagram::PictureKind *kind = diagram::KindOfFile(file);
    const PictureFormat format = kind ? kind->format : ofRow;
    if (format == PictureFormat::Emf) return diagram::ExportPictureFile(window.CurrentSurface(), file);
    if (format != PictureFormat::Wmf) return AskAndWrite(window, file, format);
    diagram::WriteMetafile(window.CurrentSurface(), file);
    return true;
}

} // namespace

void mnuFileExportPicture(frmMain &window) {
    window.SetMousePointer(document::pointer::kNormal);
    int row = LastRow();
    const QString chosen = window.Desktop().dialogs.ShowSaveFileDialog(
        Filter(), QStringLiteral("wmf"), PlaceBeside(window, EndingOf(*FormatOfRow(row))), kFlags, &window,
        row);
    const std::optional<PictureFormat> format = FormatOfRow(row);
    if (chosen.isEmpty() || !format) return;
    const QString file = NamedFor(window, chosen, *format);
    if (file.isEmpty()) return;
    settings::SaveSet(QLatin1String(kLastRow), QString::number(row));
    if (Export(window, file, *format)) TellWritten(window, file);
}

} // namespace mainwindow
