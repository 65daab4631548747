// What all windows of the process share: the program's icon, the lists of fonts, the automatic layouts, a
// look that was copied.
#pragma once

#include "mainwindow/edits/LayoutTool.h"
#include "mainwindow/look/CopiedLook.h"

#include <QIcon>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace mainwindow {

class frmMain;

// One object for the process, owned by the application object. Every window adds a use when it starts and
// takes it away when it ends.
class frmPics : public QObject {
    Q_OBJECT
public:
    // The shared object, made at the first question.
    static frmPics &Shared();

    void AddUsage();
    // Ends the object at a count below 1, or when `leaving` is the only window left; otherwise looks again
    // shortly.
    void RemoveUsage(const frmMain &leaving);
    int Usage() const { return usage_; }

    QIcon ProgramIcon() const;
    // The names of the machine's fonts and the sizes to choose from, in points. The names are asked for once,
    // at the first question: the machine takes its time to list them.
    const QStringList &cboFont();
    const QStringList &cboFontSize();
    // The settings of the two automatic layouts.
    LayoutTool &HFlow() { return hFlow_; }
    LayoutTool &TFlow() { return tFlow_; }
    CopiedLook &Look() { return look_; }

private:
    explicit frmPics(QObject *parent);
    void tmrEnd_Timer();
    void Unload();

    int usage_ = 0;
    QTimer tmrEnd_;
    QStringList fonts_;
    QStringList sizes_;
    LayoutTool hFlow_, tFlow_;
    CopiedLook look_;
};

} // namespace mainwindow
