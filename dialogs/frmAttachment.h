// One attachment: its file, and whether the map holds it.
#pragma once

#include "support/Forms.h"

#include <QDialog>

class QCheckBox;
class QPushButton;

namespace dialogs {

class PathLabel;

// What the form is handed, and by which a caller shows it.
class cfrmAttachment {
public:
    static constexpr char kForm[] = "frmAttachment";
    explicit cfrmAttachment(support::Desktop &desktop) : desktop_(desktop) {}

    QString Filename;
    bool bEmbed = false;
    bool Cancel = true; // until the user has chosen OK

    // Shows the form above `owner`.
    void ShowDialog(support::Owner owner) { support::Show(desktop_, *this, owner); }
    support::Desktop &Desktop() { return desktop_; }

private:
    support::Desktop &desktop_;
};

// One without a file opens straight into the dialog for it.
class frmAttachment : public QDialog {
    Q_OBJECT
public:
    frmAttachment(cfrmAttachment &attachment, QWidget *parent);

    // What happens when the form comes up: the first time only.
    void Form_Activate();
    void cmdBrowseLink_Click();
    void accept() override; // cmdOK

protected:
    void showEvent(QShowEvent *event) override;

private:
    void Build();

    cfrmAttachment &attachment_;
    PathLabel *lblFilename_ = nullptr;
    QPushButton *cmdBrowseLink_ = nullptr;
    QCheckBox *chkEmbed_ = nullptr;
    bool wasActive_ = false;
};

} // namespace dialogs
