// Size and background of a picture that is about to be written.
#pragma once

#include "mainwindow/forms/PictureChoice.h"

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QRadioButton;
class QSpinBox;

namespace mainwindow {

class frmPicture : public QDialog {
    Q_OBJECT
public:
    frmPicture(PictureFormArgument &argument, QWidget *parent);

    // Null unless the picture is a PNG.
    QRadioButton *optPixels() const { return optPixels_; }
    QSpinBox *txtPixels() const { return txtPixels_; }
    QSpinBox *txtDots() const { return txtDots_; }

    QSpinBox *txtScale() const { return txtScale_; }
    QComboBox *cboBackground() const { return cboBackground_; }
    QLabel *lblSize() const { return lblSize_; }

    void accept() override;

private:
    bool IsPng() const { return argument_.format == diagram::PictureFormat::Png; }
    QSpinBox *AddNumber(const char *name, const QString &spoken, int lowest, int highest, int value);
    QRadioButton *AddOption(const char *name, const QString &text, bool chosen);
    void AddSize(QFormLayout &form);
    void AddBackground(QFormLayout &form);
    void AddButtons(QFormLayout &form);
    PictureChoice Choice() const;
    void ShowSize();

    PictureFormArgument &argument_;
    QRadioButton *optScale_ = nullptr, *optPixels_ = nullptr;
    QSpinBox *txtScale_ = nullptr, *txtPixels_ = nullptr, *txtDots_ = nullptr;
    QComboBox *cboBackground_ = nullptr;
    QLabel *lblSize_ = nullptr;
};

} // namespace mainwindow
