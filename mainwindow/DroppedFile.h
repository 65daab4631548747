// What can be done with a file that the user drops on the page.
#pragma once

#include "dialogs/PictureFile.h"

#include <QMenu>
#include <QString>

namespace diagram {
class Node;
}
namespace document {
class clsfrmMain;
}

namespace mainwindow {

using dialogs::IsNamedLikeAPicture;
using dialogs::PictureIn;

// Adds the file to the attachments of the node, by its path, and marks the map; false when it is there
// already. A node without a key gets one, which is no step of undo: attachments are found by it.
bool AttachFile(document::clsfrmMain &settings, diagram::Node &node, const QString &file);

// Offers what a file dropped on a node can become. Goes when it is closed.
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
