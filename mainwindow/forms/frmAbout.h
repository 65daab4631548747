// About the program.
#pragma once

#include "support/Desktop.h"

#include <QDialog>

class QPushButton;

namespace mainwindow {

// It is handed nothing.
struct AboutForm {
    static constexpr char kForm[] = "frmAbout";
};

class frmAbout : public QDialog {
    Q_OBJECT
public:
    frmAbout(support::Desktop &desktop, QWidget *parent);

    QPushButton *cmdOK() const { return cmdOK_; }
    QPushButton *cmdSysInfo() const { return cmdSysInfo_; }

private:
    QPushButton *cmdOK_;
    QPushButton *cmdSysInfo_;
};

// The program that tells about the machine, from the registry; empty where there is none.
QString SysInfoProgram(support::RegistryStore &registry);
// Runs it, or says that there is none.
void StartSysInfo(support::Desktop &desktop);

} // namespace mainwindow
