// The node dialog's page of the date.
#pragma once

#include "dialogs/NodeEdit.h"
#include "timeline/ReadDateAsWritten.h"

#include <QWidget>

class QCheckBox;
class QLabel;

namespace dialogs {

class DateBox;

class NodeDatePage : public QWidget {
    Q_OBJECT
public:
    NodeDatePage(const timeline::DateView &view, QWidget *parent);

    // Shows the text of the day that the node is linked to, and the node's end.
    void Load(const QString &day, const std::optional<QDate> &last = {});
    void Store(NodeEdit &edit) const;
    // Whether the node is to have a date and what was typed is none.
    bool IsUnreadable() const;
    QString Text() const;
    void FocusDate();

    void chkDate_Click();

private:
    void ShowMeaning();

    QCheckBox *chkDate_;
    DateBox *SSDateCombo1_;
    QLabel *lblMeaning_;
};

} // namespace dialogs
