// What can be done with a file that the user drops on a node.
#pragma once

#include <QMenu>
#include <QString>

namespace diagram {
class Node;
}
namespace document {
class clsfrmMain;
}

namespace mainwindow {

// Links the file to the node as an attachment and makes the map dirty; false when the node has it already. A
// node without a key gets one, by which its attachments are found; that is no step of undo.
bool AttachFile(document::clsfrmMain &settings, diagram::Node &node, const QString &file);

// Offers what a file dropped on a node can become. Deletes itself when it is closed.
class DropMenu : public QMenu {
    Q_OBJECT
public:
    // `name` is shown; the picture entry is disabled unless the file holds one.
    DropMenu(const QString &name, bool isPicture, QWidget *parent);

Q_SIGNALS:
    void Attach();
    void UseAsPicture();
};

} // namespace mainwindow
