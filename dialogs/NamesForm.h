// What the forms for levels and for groups share: a list of names with its buttons.
#pragma once

#include "dialogs/NameList.h"

#include <functional>
#include <QDialog>

class QPushButton;
class QVBoxLayout;

namespace document {
class MapWindow;
}

namespace dialogs {

class NamesForm : public QDialog {
    Q_OBJECT
public:
    NameList *lvwColor() const { return lvwColor_; }

    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    // Asks first, if the form can be seen.
    void cmdDefault_Click();
    void cmdOK_Click();

    void done(int result) override;

protected:
    struct Words {
        const char *form;
        QString caption, frame, column;
    };
    // Window and status outlive the form; OK writes what is to be said in the status bar to `status`.
    NamesForm(const Words &words, NameList::Colours colours, document::MapWindow &window, QString &status,
              QWidget *parent);

    void ShowRows(const NameRows &rows);
    // A button beside the list, below those that are there.
    QPushButton *AddButton(const char *name, const QString &text, const std::function<void()> &click);
    // That button can be pressed only while a row is selected.
    void NeedsRow(QPushButton &button) { ofRow_.push_back(&button); }
    // Adds a widget below the list; `first` is the control in it that comes next by Tab.
    void AddBelowList(QWidget &widget, QWidget &first);
    // Takes what is being typed, then runs `action` as the routine of that name of this form, and shows its
    // errors.
    void Run(const char *routine, const std::function<void()> &action);
    document::MapWindow &Window() const { return window_; }
    const NameRows &Former() const { return former_; }

    // The user ended the editing of a name.
    virtual void lvwColor_AfterLabelEdit(QTreeWidgetItem &row, const QString &text) = 0;
    // What OK and Default do once the rows are found to be good.
    virtual void Store(NameRows &rows) = 0;
    virtual QString StoreDefaults(const NameRows &rows) = 0;
    // Rows came or went.
    virtual void RowsChanged() {}

private:
    void BuildControls(const Words &words, NameList::Colours colours);
    void BuildClosingButtons();
    void UpdateButtons();
    void DeleteRow();
    void Accept();
    QString TextOfDeleted(const NameRows &deleted) const;
    void WriteDefaults();
    bool Consents() const;
    // False, with the row shown and a message at it, when one can't stand.
    bool RowsAreGood(const NameRows &rows);

    QByteArray form_;
    document::MapWindow &window_;
    QString &status_;
    NameRows former_;
    NameList *lvwColor_ = nullptr;
    QVBoxLayout *lower_ = nullptr;
    QVBoxLayout *buttons_ = nullptr;
    QWidget *lastOfTab_ = nullptr;     // the last in the order of Tab before the buttons that close
    std::vector<QPushButton *> ofRow_; // those that need a row
};

inline const QString kNewItem = QStringLiteral("New Item");

} // namespace dialogs
