// The dialog in which a report is exported.
#pragma once

#include "output/export/clsExport.h"
#include "output/export/ExportReport.h"

#include <array>
#include <QDialog>
#include <QElapsedTimer>

class QCheckBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStackedWidget;

namespace output {

class frmExport : public QDialog, private ReportProgress {
    Q_OBJECT
public:
    // What the argument refers to must outlive the form.
    frmExport(clsExport &argument, QWidget *parent);

    QCheckBox *chkNodes() const { return chkNodes_; }
    QCheckBox *chkDetails() const { return chkDetails_; }
    QCheckBox *chkAll() const { return chkAll_; }
    QCheckBox *chkMap() const { return chkMap_; }
    QRadioButton *optOutput(int index) const { return optOutput_[std::size_t(index)]; }

    // Clears and disables the details with the nodes.
    void chkNodes_Click();
    // Writes the report and opens it. The form closes once that was done.
    void cmdOK_Click();

    // While a report is written, this gives it up.
    void reject() override;

private:
    QWidget *BuildOptions();
    QWidget *BuildDoing();
    void BuildButtons();
    QCheckBox *AddCheck(QLayout &lines, const char *name, const QString &caption);
    void ShowOptions(const ReportOptions &options);
    ReportOptions Options() const;
    void SetRunning(bool on);
    void Run();

    void Slice(const QString &caption, int done, int slices) override;
    void Nodes(int done, int nodes) override;
    void Doing(const QString &text) override;
    bool GoOn() override;
    void LetEventsRun();

    clsExport &argument_;
    QStackedWidget *pages_ = nullptr;
    QGroupBox *fraOutput_ = nullptr;
    QWidget *picDoing_ = nullptr;
    QCheckBox *chkNodes_ = nullptr, *chkDetails_ = nullptr, *chkAll_ = nullptr, *chkMap_ = nullptr;
    std::array<QRadioButton *, 2> optOutput_{};
    QLabel *lblMap_ = nullptr, *lblDoing_ = nullptr;
    QProgressBar *prg1_ = nullptr, *prg2_ = nullptr;
    QPushButton *cmdOK_ = nullptr, *cmdCancel_ = nullptr;
    QElapsedTimer sinceShown_;
    bool running_ = false, givenUp_ = false;
};

} // namespace output
