// The node dialog's page of the look.
#pragma once

#include "dialogs/NodeEdit.h"

#include <QWidget>

class QComboBox;

namespace support {
struct Desktop;
}

namespace dialogs {

class SwatchButton;

class NodeSettingsPage : public QWidget {
    Q_OBJECT
public:
    NodeSettingsPage(support::Desktop &desktop, QWidget *parent);

    void Load(const NodeEdit &edit);
    void Store(NodeEdit &edit) const;

    SwatchButton &picFillColor() { return *picFillColor_; }
    SwatchButton &picForeColor() { return *picForeColor_; }

Q_SIGNALS:
    void Changed();

private:
    QComboBox *cboShape_, *cboShapeOrient_, *cboDrawStyle_, *cboShadow_, *cboDrawWidth_, *cboAutoSize_;
    SwatchButton *picFillColor_, *picBorderColor_, *picForeColor_;
};

} // namespace dialogs
