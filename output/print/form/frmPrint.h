// The preview: the pages as they will come out of the printer, and what changes them.
#pragma once

#include "output/print/PrintForms.h"
#include "output/print/ZoomToPages.h"

#include <QHash>
#include <QMainWindow>

class QComboBox;
class QLabel;
class QToolBar;
class QToolButton;

namespace print {

class PreviewSheets;

// Not modal: it shows copies, lives when their window is closed, and deletes itself when it is closed.
class frmPrint : public QMainWindow {
    Q_OBJECT
public:
    explicit frmPrint(PrintPreviewArgument argument);
    ~frmPrint() override;

    // The slice in the preview; null without one.
    diagram::Surface *AF() const { return print_->PrnFlow1.Surface(); }
    PrnFlow &PrnFlow1() const { return print_->PrnFlow1; }
    PreviewSheets &Sheets() const { return *sheets_; }

    void Form_Activate();
    void tlbPint_ButtonClick(const QString &key);
    // An entry of DOWN or WIDE, from 1.
    void tlbPint_ButtonMenuClick(const QString &key, int number);
    void cboZoom_Click();
    // A button of tlbPint by its key.
    QAction *Button(const QString &key) const { return buttons_.value(key); }
    QComboBox *cboZoom() const { return cboZoom_; }
    // What a panel of staPrint says.
    QString Panel(const QString &name) const;

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    struct Row;
    void BuildToolbar();
    void AddButton(const Row &row);
    void AddNumbers(const QString &key, QAction &button);
    void BuildZoom();
    void BuildStatus();
    void BuildKeys();
    void LetGo();
    void Shown();
    void UpdateStatus();
    void Turn(int orientation);
    void Print();
    void GoTo(int page);
    void StepZoom(int steps);
    bool TellThatFitIsOn();
    QSizeF ScrollBars() const;

    PrintPreviewArgument argument_;
    std::shared_ptr<LoadedPrint> print_;
    PreviewSheets *sheets_ = nullptr;
    QToolBar *tlbPint_ = nullptr;
    QHash<QString, QAction *> buttons_;
    QHash<QString, QLabel *> panels_;
    QComboBox *cboZoom_ = nullptr;
    bool wasActive_ = false;
};

} // namespace print
