// The dialog in which slices are added, renamed, removed and reordered. The commands for one of these drive
// it unseen.
#pragma once

#include "mainwindow/edits/SliceList.h"
#include "support/Desktop.h"

#include <QDialog>
#include <vector>

class QListWidget;
class QPushButton;

namespace mainwindow {

// The form is its own argument: the caller makes it, and document::Show runs it.
class frmLayers : public QDialog {
    Q_OBJECT
public:
    static constexpr char kForm[] = "frmLayers";
    // `iSelectedItem` is the row selected at first. The desktop must live longer.
    frmLayers(support::Desktop &desktop, const std::vector<document::cSlice> &slices, int iSelectedItem,
              QWidget *parent);

    // As given before OK, as edited after it.
    const std::vector<document::cSlice> &cLayers() const { return cLayers_; }
    QListWidget *lvwLayers() const { return lvwLayers_; }

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdUp_Click() { MoveRow(-1); }
    void cmdDown_Click() { MoveRow(1); }
    void cmdOK_Click();
    // OK, unless the list is as it was given: for commands that drive the form unseen.
    void OkIfEdited();

private:
    void BuildControls();
    QPushButton *AddButton(const char *name, const QString &text, void (frmLayers::*click)());
    void ShowRows(int selected);
    void MoveRow(int by);
    void UpdateButtons();
    QString AskName(const QString &preset);

    support::Desktop &desktop_;
    std::vector<document::cSlice> cLayers_;
    SliceList list_;
    QListWidget *lvwLayers_ = nullptr;
    QPushButton *cmdEdit_ = nullptr;
    QPushButton *cmdDelete_ = nullptr;
    QPushButton *cmdUp_ = nullptr;
    QPushButton *cmdDown_ = nullptr;
};

} // namespace mainwindow
