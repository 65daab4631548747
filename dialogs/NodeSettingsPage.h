// The node dialog's page of shape, lines and colours.
#pragma once

#include "dialogs/NodeEdit.h"

#include <QWidget>

class QComboBox;

namespace support {
struct Desktop;
}

namespace widgets {
class SwatchButton;
}

namespace dialogs {

class NodeSettingsPage : public QWidget {
    Q_OBJECT
public:
    NodeSettingsPage(support::Desktop &desktop, QWidget *parent);

    void Load(const NodeEdit &edit);
    void Store(NodeEdit &edit) const;

    widgets::SwatchButton &picFillColor() { return *picFillColor_; }
    widgets::SwatchButton &picForeColor() { return *picForeColor_; }

Q_SIGNALS:
    void Changed();

private:
    QComboBox *cboShape_, *cboShapeOrient_, *cboDrawStyle_, *cboShadow_, *cboDrawWidth_, *cboAutoSize_;
    widgets::SwatchButton *picFillColor_, *picBorderColor_, *picForeColor_;
};

} // namespace dialogs
