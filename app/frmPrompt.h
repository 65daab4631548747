// Offers the start-up map.
#pragma once

#include "support/Forms.h"

#include <QDialog>
#include <QString>

class QCheckBox;
class QLabel;
class QPushButton;

namespace app {

struct StartupOffer {
    static constexpr char kForm[] = "frmPrompt";
    QString file;          // the name in the question
    bool ClickYes = false; // the answer
};

class frmPrompt : public QDialog {
    Q_OBJECT
public:
    frmPrompt(StartupOffer &offer, QWidget *parent);

    QLabel *lbl() const { return lbl_; }
    QPushButton *cmdYes() const { return cmdYes_; }
    QPushButton *cmdNo() const { return cmdNo_; }
    QCheckBox *chkNotAgain() const { return chkNotAgain_; }

private:
    void LayOut();
    void Answer(bool yes);

    StartupOffer &offer_;
    QLabel *lbl_;
    QPushButton *cmdYes_;
    QPushButton *cmdNo_;
    QCheckBox *chkNotAgain_;
};

// True when the user wants the file opened.
bool AskToOpen(support::Desktop &desktop, const QString &file, support::Owner owner);

} // namespace app
