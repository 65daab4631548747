// What a screen reader is told of a surface: the view is a list, its nodes and links are the entries.
#pragma once

#include "diagram/model/Item.h"

#include <functional>
#include <map>
#include <QAccessible>
#include <vector>

namespace diagram {

class SurfaceView;

// Makes the views known to Qt's accessibility. Doing it again does no harm.
void InstallAccessibility();

// Tells assistants what has changed, once an event loop turn. Costs nothing while no assistant runs.
class AccessibleNotices : private QAccessible::ActivationObserver {
public:
    explicit AccessibleNotices(SurfaceView &view);
    ~AccessibleNotices() override;
    AccessibleNotices(const AccessibleNotices &) = delete;
    AccessibleNotices &operator=(const AccessibleNotices &) = delete;

    // Takes the place of Qt's assistants.
    void SetAssistant(std::function<void(QAccessibleEvent &)> assistant);
    void Added(const Item &item);
    void Changed(const Item &item, Change what);
    void ListChanged(); // items came or went
    void Removed(const Item &item);
    void Send();

private:
    void accessibilityActiveChanged(bool active) override { active_ = active; }
    bool Listens() const { return active_ || assistant_; }
    void Tell(QAccessibleEvent &event) const;
    void SendAdded();
    void SendChange(const Item &item, Change what) const;
    void SendFocus();

    SurfaceView &view_;
    std::function<void(QAccessibleEvent &)> assistant_;
    std::vector<ItemId> added_;
    std::map<ItemId, Change> changed_;
    ItemId focus_ = kNoItem;
    bool listChanged_ = false;
    bool active_;
};

} // namespace diagram
