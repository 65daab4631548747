// A list of names with check boxes, edited in place, in the order in which it is given: no click sorts it.
#pragma once

#include "dialogs/NameRows.h"

#include <QPointer>
#include <QTreeWidget>

class QLabel;

namespace dialogs {

class NameList : public QTreeWidget {
    Q_OBJECT
public:
    enum class Colours { Shown, None };
    // With one column of that title. With colours each row has a swatch, and its text is of that colour.
    NameList(const QString &column, Colours colours, QWidget *parent);

    void SetRows(const NameRows &rows);
    NameRows Rows() const;
    QTreeWidgetItem &AddRow(const NameRow &row); // behind the others
    static support::Colour ColourOf(const QTreeWidgetItem &row);
    void SetColour(QTreeWidgetItem &row, support::Colour colour);

    // Selects the row, brings it into sight, and lets the user type its name.
    void EditRow(QTreeWidgetItem &row);
    // Takes what is being typed and emits LabelEdited for it.
    void EndEditing();
    // Drops what is being typed; LabelEdited is not emitted any more.
    void DropEditing();

    // Shows a text right at the row until something is edited, selected or scrolled.
    void ShowMessage(const QTreeWidgetItem &row, const QString &text);
    QString Message() const; // empty while none is shown

Q_SIGNALS:
    // The user ended the editing of a name otherwise than by Escape. The row still has its former text.
    // Emitted once the event that ended it has returned.
    void LabelEdited(QTreeWidgetItem &row, const QString &text);
    void DeletePressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    class Delegate;
    void ShowRow(QTreeWidgetItem &item, const NameRow &row);
    void PaintColour(QTreeWidgetItem &item);
    void TellEdited();
    void HideMessage();

    Colours colours_;
    Delegate *delegate_;
    QLabel *message_;
    QTreeWidgetItem *edited_ = nullptr; // the row for which LabelEdited is still to be emitted
    QString typed_;
    bool dropped_ = false;
};

} // namespace dialogs
