// Asks where the pointer is whether a node that is offered shall come.
#pragma once

#include <functional>
#include <QPointer>

class QMenu;
class QPoint;
class QString;
class QWidget;

namespace diagram {

class OfferMenu {
public:
    // `answered` is told each answer; a menu that goes without one is a no, told when its event is over.
    OfferMenu(QWidget &parent, std::function<void(bool yes)> answered)
        : parent_(parent), answered_(std::move(answered)) {}

    // `node` is what nodes are called. Returns at once.
    void Ask(const QPoint &global, const QString &node);
    void Close();
    bool IsOpen() const;

private:
    QWidget &parent_;
    std::function<void(bool)> answered_;
    QPointer<QMenu> menu_;
};

} // namespace diagram
