// The dialog of the page setup.
#pragma once

#include "output/print/PrintForms.h"

#include <array>
#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QVBoxLayout;

namespace print {

class frmPageSetup : public QDialog {
    Q_OBJECT
public:
    frmPageSetup(PageSetupArgument &argument, QWidget *parent);

    void cmdOK_Click();

    QLineEdit *txtHeader() const { return txtHeader_; }
    QLineEdit *txtFooter() const { return txtFooter_; }
    QRadioButton *optOri(int index) const { return optOri_[std::size_t(index)]; }
    QCheckBox *chkFit() const { return chkFit_; }
    QComboBox *cboPaper() const { return cboPaper_; }
    QDoubleSpinBox *txtMargin(int side) const {
        return txtMargin_[std::size_t(side)];
    } // left, top, right, bottom
    QRadioButton *optSlices(int index) const {
        return optSlices_[std::size_t(index)];
    } // in the order of Slices
    QListWidget *lstSlices() const { return lstSlices_; }
    QLineEdit *txtPages() const { return txtPages_; }
    QCheckBox *chkMarks() const { return chkMarks_; }
    QCheckBox *chkKeepWhole() const { return chkKeepWhole_; }
    QCheckBox *chkGrid() const { return chkGrid_; }
    QLabel *lblTooNear() const { return lblTooNear_; }

private:
    void BuildTexts(QGridLayout &grid);
    QWidget *BuildPage();
    QWidget *BuildMargins();
    QWidget *BuildSlices();
    QWidget *BuildWhatIsPrinted();
    void BuildClosing(QVBoxLayout &whole);
    void Form_Load();
    void UpdateControls();
    void UpdateTooNear();
    PageSetup Shown() const;
    bool IsComplete(const PageSetup &setup);

    PageSetupArgument &argument_;
    QLineEdit *txtHeader_ = nullptr, *txtFooter_ = nullptr, *txtPages_ = nullptr;
    QGroupBox *fraOrientation_ = nullptr;
    std::array<QRadioButton *, 2> optOri_{};
    std::array<QRadioButton *, 3> optSlices_{};
    std::array<QDoubleSpinBox *, 4> txtMargin_{};
    QListWidget *lstSlices_ = nullptr;
    QComboBox *cboPaper_ = nullptr;
    QLabel *lblTooNear_ = nullptr;
    QCheckBox *chkFit_ = nullptr, *chkMarks_ = nullptr, *chkKeepWhole_ = nullptr, *chkGrid_ = nullptr;
};

} // namespace print
