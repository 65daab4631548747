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
    // Asks whether a name with commas is to be taken without them: in a node's tag commas separate its
    // groups.
    void lvwColor_AfterLabelEdit(QTreeWidgetItem &row, const QString &text) override;
    void Store(NameRows &rows) override;
    QString StoreDefaults(const NameRows &rows) override { return StoreDefaultGroups(rows); }

private:
    document::cGroups &oGroups_;
};

} // namespace dialogs
