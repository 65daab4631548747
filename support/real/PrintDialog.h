// Qt's print dialog, and what that leaves out: it offers a file name that is free, and shows the pages, the
// paper and the options that were chosen before.
#pragma once

#include "support/Printers.h"

#include <memory>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

namespace support {

class PrintDialog : public QPrintDialog {
    Q_OBJECT
public:
    // Shows `printer` with its settings.
    PrintDialog(const SystemPrinter &printer, QWidget *parent);
    // What was chosen; `printer` is the one that was shown.
    void ReadBackTo(SystemPrinter &printer) const;

    void setVisible(bool visible) override;

protected:
    void childEvent(QChildEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PrintDialog(std::unique_ptr<QPrinter> device, const SystemPrinter &printer, QWidget *parent);
    void OfferFile(const QString &path);
    void ShowPages();
    void FollowPages(const QString &text);
    void ShowPaper(QDialog &properties);
    QPageSize ChosenPaper() const;

    std::unique_ptr<QPrinter> device_;
    QPageRanges pages_;
    QPageSize paper_;              // not valid for a size that the user made up
    QPointer<QDialog> properties_; // of the printer, once they were shown
};

} // namespace support
