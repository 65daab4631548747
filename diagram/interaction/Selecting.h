// Changing the selection the way the user does.
#pragma once

#include "diagram/model/Item.h"

#include <functional>
#include <QRectF>
#include <vector>

namespace diagram {

class Link;
class Node;
class Scene;
class Surface;

// Runs `change`, then raises AfterSelect once when the selection differs from what it was.
void ChangeSelection(Surface &surface, const std::function<void()> &change);

Item *FindItem(const Surface &surface, ItemId id); // null when it is gone
bool IsSelectable(const Item &item);               // and not hidden
bool IsSelected(const Item &item);
void SetSelected(Item &item, bool on); // raises nothing
// Whether the whole item lies inside `area` (twips).
bool LiesInside(const Item &item, const QRectF &area);

// Each raises AfterSelect, if anything changed. Items that aren't selectable stay as they are.
void SelectOnly(Item &item);
void SelectToo(Item &item);
void ToggleSelected(Item &item);
void SelectNothing(Surface &surface);

// The visible, selectable nodes line by line from the top, each line from the left. A node belongs to a line
// when its middle lies within the height of the line's first node.
std::vector<Node *> ReadingOrder(const Surface &surface);
// The node after (step 1) or before (step -1) that one in reading order, the first or last when it is null;
// null at the end.
Node *NextInReadingOrder(const Surface &surface, const Node *from, int step);

} // namespace diagram
