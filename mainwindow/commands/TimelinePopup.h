// The popup of a month, SMXP, and what its entries do.
#pragma once

#include "diagram/model/Item.h"

#include <QPointF>
#include <QString>
#include <utility>

namespace diagram {
class Node;
class SurfaceView;
enum class StripPiece;
} // namespace diagram

namespace mainwindow {

class frmMain;
class TimelineMenu;

class TimelinePopup {
public:
    explicit TimelinePopup(frmMain &window);

    // Opens it for the month, at a place of its surface in twips.
    void Show(diagram::Node &month, const diagram::SurfaceView &view, const QPointF &twips);
    // Runs the entry of that key; "Unknown Key " and the key for one that names none.
    void Click(const QString &key);
    // The month for which it was opened last; null when there is none or it was deleted.
    diagram::Node *Month() const;

private:
    void Hide();
    void UnHide();
    void OpenSetup();
    void ShowFolds(const diagram::Node &month, bool anyFold);
    void Fold(diagram::StripPiece piece);
    void FoldMonth();
    void FoldQuarter();
    void FoldYear();
    void UnfoldAll();

    frmMain &window_;
    TimelineMenu *menu_;
    // Slot and identity, as the month can be deleted while the popup is open.
    std::pair<int, diagram::ItemId> month_{-1, diagram::kNoItem};
};

} // namespace mainwindow
