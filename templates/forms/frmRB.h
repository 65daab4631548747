// The question whether a template makes a new slice or updates the current one.
#pragma once

#include "settings/clsRB.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QPushButton;

namespace templates {

// Sets Choice and SaveValue of the object, which outlives the form.
class frmRB : public QDialog {
    Q_OBJECT
public:
    frmRB(settings::clsRB &prompt, QWidget *parent);

    QLabel *lblText() const { return lblText_; }
    QCheckBox *chkRemember() const { return chkRemember_; }
    QPushButton *cmdNew() const { return cmdNew_; }
    QPushButton *cmdUpdate() const { return cmdUpdate_; }
    QPushButton *cmdCancel() const { return cmdCancel_; }

    void reject() override; // cmdCancel and Escape

private:
    void LayOut();
    void Choose(std::int32_t choice);

    settings::clsRB &prompt_;
    QLabel *lblText_;
    QCheckBox *chkRemember_;
    QPushButton *cmdNew_;
    QPushButton *cmdUpdate_;
    QPushButton *cmdCancel_;
};

} // namespace templates
