// Single presses and releases of keys as the window system reports them, so that a key can be held.
#pragma once

#include <QTest>
#include <QWidget>

namespace mainwindow::testing {

inline void PressKey(const QWidget &window, Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::simulateEvent(window.windowHandle(), true, key, held, QString(), false);
}

inline void ReleaseKey(const QWidget &window, Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::simulateEvent(window.windowHandle(), false, key, held, QString(), false);
}

} // namespace mainwindow::testing
