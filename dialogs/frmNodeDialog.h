// Every property of a node. It shows the values of one node; OK and Apply give the look to all that are
// edited with it, and what is its own to that one alone.
#pragma once

#include "dialogs/NodeEdit.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QTimer;

namespace dialogs {

class AttachmentsPage;
class HyperlinkPage;
class NodeDatePage;
class NodeLevelPage;
class NodePicturePage;
class NodeSample;
class NodeSettingsPage;
class NodeTextPage;

class frmNodeDialog : public QDialog {
    Q_OBJECT
public:
    // What the argument refers to must outlive the form.
    frmNodeDialog(const NodeDialogArgument &argument, QWidget *parent);

    // What the pages hold.
    NodeEdit Edit() const;
    QTabWidget *SSIndexTab1() const { return SSIndexTab1_; }
    const NodeSample *Sample() const { return sample_; }

    // The buttons. False when something was not applied, and why was told.
    bool cmdApply_Click();
    void OKButton_Click();

private:
    void Form_Load();
    void BuildPages();
    void AddLinkedPages();
    void BuildRest();
    void BuildButtons();
    void Watch();
    bool EditsSeveral() const;
    void ShowDate();
    void SSIndexTab1_Click(int page);
    void ShowWhatGoesWhere();
    void ShowSample();
    // Says why nothing was applied, and shows the page at which that can be mended.
    void Refuse(const QString &why, QWidget &page);
    bool MayApply();

    NodeDialogArgument argument_;
    QTabWidget *SSIndexTab1_;
    NodeSettingsPage *settings_ = nullptr;
    NodeTextPage *text_ = nullptr;
    NodeDatePage *date_ = nullptr;
    NodeLevelPage *level_ = nullptr;
    NodePicturePage *picture_ = nullptr;
    HyperlinkPage *hyperlink_ = nullptr;
    AttachmentsPage *attachments_ = nullptr;
    NodeSample *sample_ = nullptr;
    QLabel *lblSelection_ = nullptr;
    QDialogButtonBox *buttons_ = nullptr;
    QPushButton *OKButton_ = nullptr;
    QTimer *resample_ = nullptr; // paints one sample for several changes
};

} // namespace dialogs
