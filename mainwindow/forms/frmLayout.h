// The options of an automatic layout.
#pragma once

#include "mainwindow/edits/LayoutTool.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;

namespace mainwindow {

struct LayoutFormArgument {
    static constexpr char kForm[] = "frmLayout";
    LayoutTool &tool; // changed by OK alone
    QString title;
    bool keepsTogether = false; // whether this layout can
};

class frmLayout : public QDialog {
    Q_OBJECT
public:
    frmLayout(const LayoutFormArgument &argument, QWidget *parent);

    void accept() override;

private:
    QDoubleSpinBox *AddDistance(const char *name, double twips);

    LayoutTool &tool_;
    QComboBox *cboOrientation_;
    QDoubleSpinBox *txtLevels_;
    QDoubleSpinBox *txtNeighbours_;
    QComboBox *cboTogether_;
    QCheckBox *chkSelection_;
};

} // namespace mainwindow
