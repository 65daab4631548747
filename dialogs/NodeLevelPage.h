// The node dialog's page of level and groups. Its lists are empty until it is first opened, and what it shows
// is applied only then.
#pragma once

#include "dialogs/NodeEdit.h"

#include <QWidget>

class QGridLayout;
class QListWidget;
class QListWidgetItem;

namespace document {
class clsfrmMain;
}

namespace dialogs {

class NodeLevelPage : public QWidget {
    Q_OBJECT
public:
    explicit NodeLevelPage(QWidget *parent);

    bool IsFilled() const;
    // Fills the lists with the map's levels and groups and marks those of the node; the first one for a key
    // that none has.
    void Fill(document::clsfrmMain &settings, const diagram::Node &oNode);
    // Selects the row of the level that is marked.
    void SelectLevel();
    // Nothing while the lists are empty.
    void Store(NodeEdit &edit) const;

Q_SIGNALS:
    // The level that was marked has that colour.
    void LevelMarked(support::Colour colour);

private:
    QListWidget *AddList(QGridLayout &grid, int column, const QString &label, const char *name);
    void FillLevels(document::clsfrmMain &settings, const diagram::Node &oNode);
    void FillGroups(document::clsfrmMain &settings, const diagram::Node &oNode);
    void lstLevels_ItemCheck(QListWidgetItem *item);

    QListWidget *lstLevels_, *lstGroups_;
    bool checking_ = false; // while lstLevels_ItemCheck sets marks itself
};

} // namespace dialogs
