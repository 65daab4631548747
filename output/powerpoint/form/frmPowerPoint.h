// The options of a presentation, and what is shown while it is made.
#pragma once

#include "output/powerpoint/PowerPointForm.h"

#include <QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QProgressBar;

namespace powerpoint {

class frmPowerPoint : public QDialog {
    Q_OBJECT
public:
    frmPowerPoint(PowerPointArgument &argument, QWidget *parent);

    QCheckBox *chkAll() const { return chkAll_; }
    QCheckBox *chkTitle() const { return chkTitle_; }
    QCheckBox *chkShapes() const { return chkShapes_; }
    QProgressBar *prg1() const { return prg1_; }

    void cmdOK_Click();
    // While slides are made it gives up; else it closes the form.
    void reject() override;

private:
    void BuildControls();
    void ShowChoice(const FormChoice &choice);
    FormChoice Choice() const;
    void ShowWork(bool working);
    bool GoOn(int done, int all);

    PowerPointArgument &argument_;
    bool working_ = false, givenUp_ = false;
    QCheckBox *chkAll_ = nullptr, *chkTitle_ = nullptr, *chkShapes_ = nullptr;
    QLabel *lblDoing_ = nullptr;
    QProgressBar *prg1_ = nullptr;
    QDialogButtonBox *buttons_ = nullptr;
};

} // namespace powerpoint
