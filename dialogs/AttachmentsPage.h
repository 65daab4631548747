// The page of the node dialog for the files that belong to the node.
#pragma once

#include "dialogs/AttachmentEdit.h"

#include <QWidget>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class QVBoxLayout;

namespace dialogs {

// Its list is a working copy: the node's attachments change by ApplyAttachments alone.
class AttachmentsPage : public QWidget {
    Q_OBJECT
public:
    // Both outlive the page.
    AttachmentsPage(document::MapWindow &window, diagram::Node &oNode, QWidget *parent);

    // Shows the node's attachments: when the form is loaded, and after they were applied, as embedded files
    // have new paths then.
    void Load();
    std::vector<AttachmentEdit> Rows() const;

    QTreeWidget &lvwAttachments() { return *lvwAttachments_; }
    void cmdAttNew_Click();
    void cmdAttEdit_Click();
    void cmdAttDelete_Click();
    void cmdAttOpen_Click();
    void cmdAttSaveAs_Click();  // asks where, and copies the file there
    void cmdAttPointTo_Click(); // asks for the file's new place

private:
    void BuildList();
    QPushButton *AddButton(QVBoxLayout &column, const char *name, const QString &caption,
                           void (AttachmentsPage::*click)());
    void AddRow(const AttachmentEdit &row);
    void ShowRow(QTreeWidgetItem &item, const AttachmentEdit &row);
    QTreeWidgetItem *Current() const;
    void UpdateButtons();

    document::MapWindow &window_;
    diagram::Node &oNode_;
    QTreeWidget *lvwAttachments_ = nullptr;
    std::vector<QPushButton *> needRow_;
};

} // namespace dialogs
