// The dialog in which the groups of a map are edited.
#pragma once

#include "dialogs/NamesForm.h"
#include "dialogs/PropertyForms.h"

namespace dialogs {

// Writes to the groups on OK alone.
class frmGroups : public NamesForm {
    Q_OBJECT
public:
    frmGroups(GroupsFormArgument &argument, QWidget *parent);

protected:
    // A comma asks whether the name is to be taken without it: the keys of a node's groups stand between
    // commas.
    void lvwColor_AfterLabelEdit(QTreeWidgetItem &row, const QString &text) override;
    void Store(NameRows &rows) override;
    QString StoreDefaults(const NameRows &rows) override { return StoreDefaultGroups(rows); }

private:
    document::cGroups &oGroups_;
};

} // namespace dialogs
