// The dialog in which the levels of a map are edited.
#pragma once

#include "dialogs/NamesForm.h"
#include "dialogs/PropertyForms.h"

#include <QHash>

class QComboBox;
class QLabel;

namespace dialogs {

// Writes to the levels on OK alone. A level that was deleted stays in the map; nodes that have it are given
// another one if the user says so.
class frmLevels : public NamesForm {
    Q_OBJECT
public:
    frmLevels(LevelsFormArgument &argument, QWidget *parent);

    void cmdColor_Click();
    // Shows the width of the column, in pixels, as the form's caption.
    void lvwColor_ColumnClick();
    // The level that nodes of deleted levels are to have; shown while there are such nodes. The first entry
    // leaves them as they are.
    QComboBox *cboGive() const { return cboGive_; }

protected:
    // A new level asks for its colour as soon as it has a name.
    void lvwColor_AfterLabelEdit(QTreeWidgetItem &row, const QString &text) override;
    void Store(NameRows &rows) override;
    QString StoreDefaults(const NameRows &rows) override { return StoreDefaultLevels(rows); }
    void RowsChanged() override;

private:
    void BuildGive();
    void FillGive();
    void ChooseColour(QTreeWidgetItem &row);
    // The deleted levels that nodes have.
    NameRows DeletedInUse(const NameRows &rows) const;

    document::cLevels &oLevels_;
    QHash<QString, int> nodesByLevel_;
    QWidget *give_ = nullptr;
    QLabel *lblGive_ = nullptr;
    QComboBox *cboGive_ = nullptr;
};

} // namespace dialogs
