#include "support/real/QtCommonDialogs.h"

#include "support/FileFilter.h"
#include "support/Files.h"
#include "support/real/PrintDialog.h"
#include "support/real/QtPrinters.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace support {

namespace {

QWidget *ParentOf(Owner owner) { return owner ? owner : QApplication::activeWindow(); }

// What the flags forbid, told to the user; true when the path may go back to the caller.
bool IsAcceptable(QFileDialog &dialog, const QString &path, long flags) {
    const bool wantsFile = (flags & fileflags::kFileMustExist) != 0;
    const bool wantsFolder = wantsFile || (flags & fileflags::kPathMustExist) != 0;
    QString complaint;
    if (wantsFolder && !DirExists(QFileInfo(path).absolutePath()))
        complaint = QStringLiteral("Path does not exist.\nCheck the path and try again.");
    else if (wantsFile && !FileExists(path))
        complaint = QStringLiteral("File not found.\nCheck the file name and try again.");
    if (complaint.isEmpty()) return true;
    QMessageBox::warning(&dialog, dialog.windowTitle(), QDir::toNativeSeparators(path) + u'\n' + complaint);
    return false;
}

// Qt takes a name with quotation marks for a list of names and would save under a part of it.
class FileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void accept() override {
        const auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (acceptMode() != AcceptSave || !name || !name->text().contains(u'"')) return QFileDialog::accept();
        QMessageBox::warning(this, windowTitle(),
                             name->text() + QStringLiteral("\nA file name cannot hold quotation marks."));
    }
};

// `place` is a folder, or a folder and the name to begin with.
void StartAt(QFileDialog &dialog, const QString &place) {
    if (DirExists(place)) return dialog.setDirectory(place);
    const QFileInfo file(place);
    if (place.isEmpty() || !DirExists(file.absolutePath())) return;
    dialog.setDirectory(file.absolutePath());
    dialog.selectFile(file.fileName());
}

QString RunFileDialog(const FileDialogRequest &request, Owner owner, int &filterRow) {
    FileDialog dialog(ParentOf(owner));
    SetUpFileDialog(dialog, request);
    while (dialog.exec() == QDialog::Accepted) {
        const QString path = dialog.selectedFiles().value(0);
        if (path.isEmpty() || !IsAcceptable(dialog, path, request.flags)) continue;
        filterRow = SelectedFilterRow(dialog);
        return QDir::toNativeSeparators(path);
    }
    return QString();
}

QFont FontOf(const FontChoice &choice) {
    QFont font(choice.name);
    font.setPointSizeF(choice.size);
    font.setBold(choice.bold);
    font.setItalic(choice.italic);
    font.setUnderline(choice.underline);
    font.setStrikeOut(choice.strike);
    return font;
}

FontChoice ChoiceOf(const QFont &font) {
    return {font.family(), font.pointSizeF(), font.bold(), font.italic(), font.underline(), font.strikeOut()};
}

void ShowSwatch(QPushButton &button, Colour colour) {
    QPixmap swatch(16, 16);
    swatch.fill(ToQColor(colour));
    button.setIcon(swatch);
}

// A name typed without an ending gets that of the row that is selected.
void FollowRow(QFileDialog &dialog, const std::vector<FileFilterRow> &rows, const QString &extension) {
    const auto follow = [&dialog, rows, extension] {
        const auto row = std::size_t(SelectedFilterRow(dialog) - 1);
        dialog.setDefaultSuffix(row < rows.size() ? SuffixOf(rows[row], extension)
                                                  : DefaultSuffix(extension));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow();
}

} // namespace

void SetUpFileDialog(QFileDialog &dialog, const FileDialogRequest &request) {
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    const bool mustExist = !request.save && (request.flags & fileflags::kFileMustExist);
    dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !(request.flags & fileflags::kOverwritePrompt));
    const std::vector<FileFilterRow> rows = ParseFileFilter(request.filter);
    QStringList filters;
    for (const FileFilterRow &row : rows) filters.append(QtNameFilter(row));
    if (!filters.isEmpty()) dialog.setNameFilters(filters);
    if (request.filterRow >= 1 && request.filterRow <= filters.size())
        dialog.selectNameFilter(filters[request.filterRow - 1]);
    FollowRow(dialog, rows, request.defaultExtension);
    StartAt(dialog, request.startFolder);
}

int SelectedFilterRow(const QFileDialog &dialog) {
    return static_cast<int>(dialog.nameFilters().indexOf(dialog.selectedNameFilter())) + 1;
}

QString QtCommonDialogs::ShowOpenFileDialog(const QString &filter, const QString &defaultExtension,
                                            const QString &startFolder, long flags, Owner owner,
                                            int &filterRow) {
    return RunFileDialog(
        {false, filter, defaultExtension, startFolder, flags | fileflags::kExplorer, filterRow}, owner,
        filterRow);
}

QString QtCommonDialogs::ShowSaveFileDialog(const QString &filter, const QString &defaultExtension,
                                            const QString &startFolder, long flags, Owner owner,
                                            int &filterRow) {
    return RunFileDialog({true, filter, defaultExtension, startFolder, flags, filterRow}, owner, filterRow);
}

// The dialog is always fully open.
Colour QtCommonDialogs::ShowColorDialog(Owner owner, bool, Colour colour) {
    const Colour start = colour == 0 ? colour : PlainColour(colour);
    QColorDialog dialog(ParentOf(owner));
    if (start != kNoColour) dialog.setCurrentColor(ToQColor(start));
    if (dialog.exec() != QDialog::Accepted) return kNoColour;
    return FromQColor(dialog.selectedColor());
}

// The colour has a button of its own: the platforms' font dialogs do not ask for it.
void QtCommonDialogs::ShowFontDialog(Owner owner, long, FontChoice &font, Colour &colour) {
    QFontDialog dialog(FontOf(font), ParentOf(owner));
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    Colour chosen = colour;
    if (auto *buttons = dialog.findChild<QDialogButtonBox *>()) {
        QPushButton *button = buttons->addButton(QStringLiteral("&Color..."), QDialogButtonBox::ActionRole);
        ShowSwatch(*button, chosen);
        QObject::connect(button, &QPushButton::clicked, &dialog, [this, button, &dialog, &chosen] {
            const Colour next = ShowColorDialog(&dialog, true, chosen);
            if (next != kNoColour) ShowSwatch(*button, chosen = next);
        });
    }
    if (dialog.exec() != QDialog::Accepted) return;
    font = ChoiceOf(dialog.selectedFont());
    colour = chosen;
}

bool QtCommonDialogs::ShowPrinter(Owner owner) {
    SystemPrinter &printer = printers_.System();
    PrintDialog dialog(printer, ParentOf(owner));
    if (dialog.exec() != QDialog::Accepted) return false;
    dialog.ReadBackTo(printer);
    return true;
}

} // namespace support
