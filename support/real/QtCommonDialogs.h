// The five common dialogs, with Qt's.
#pragma once

#include "support/Desktop.h"

class QFileDialog;

namespace support {

class SystemPrinters;

class QtCommonDialogs : public CommonDialogs {
public:
    // `printers` must outlive the object.
    explicit QtCommonDialogs(SystemPrinters &printers) : printers_(printers) {}

    QString ShowOpenFileDialog(const QString &filter, const QString &defaultExtension,
                               const QString &startFolder, long flags, Owner owner, int &filterRow) override;
    QString ShowSaveFileDialog(const QString &filter, const QString &defaultExtension,
                               const QString &startFolder, long flags, Owner owner, int &filterRow) override;
    Colour ShowColorDialog(Owner owner, bool fullOpen, Colour colour) override;
    void ShowFontDialog(Owner owner, long flag, FontChoice &font, Colour &colour) override;
    bool ShowPrinter(Owner owner) override;

private:
    SystemPrinters &printers_;
};

// What the two routines of file dialogs are called with.
struct FileDialogRequest {
    bool save = false;
    QString filter;
    QString defaultExtension;
    QString startFolder;
    long flags = 0;
    int filterRow = 1; // from 1
};
// Sets up `dialog` as the request says.
void SetUpFileDialog(QFileDialog &dialog, const FileDialogRequest &request);
// The row of `filter`, from 1, that the dialog has selected.
int SelectedFilterRow(const QFileDialog &dialog);

} // namespace support
