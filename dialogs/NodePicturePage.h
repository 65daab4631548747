// The node dialog's page of the picture.
#pragma once

#include "dialogs/NodeEdit.h"

#include <QWidget>

class QComboBox;
class QMimeData;
class QPushButton;

namespace support {
struct Desktop;
}

namespace dialogs {

class PictureField;

class NodePicturePage : public QWidget {
    Q_OBJECT
public:
    NodePicturePage(support::Desktop &desktop, QWidget *parent);

    void Load(const NodeEdit &edit);
    void Store(NodeEdit &edit) const;

    void cmdBrowse_Click();
    void cmdClear_Click();
    // Takes the picture of the clipboard.
    void Paste();

Q_SIGNALS:
    void Changed();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QPushButton *AddButton(const char *name, const QString &text, void (NodePicturePage::*click)());
    void ShowPicture(const diagram::Picture &picture);
    // Takes the picture, or says that `name` holds none.
    void Take(const diagram::Picture &picture, const QString &name);

    support::Desktop &desktop_;
    PictureField *picPicture_;
    QPushButton *cmdClear_ = nullptr;
    QComboBox *cboPicturePosition_;
};

} // namespace dialogs
