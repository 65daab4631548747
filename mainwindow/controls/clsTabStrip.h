// The wrapper over the tab strip: one tab a slice, counted from 0.
#pragma once

#include "document/MapWindow.h"

#include <QObject>
#include <QPointer>
#include <QTabBar>

namespace mainwindow {

// Works on a tab bar that somebody else owns; without one every operation is error 91 "Object variable or
// With block variable not set". An index without a tab is error 380 "Invalid property value".
class clsTabStrip : public QObject, public document::Tabs {
    Q_OBJECT
public:
    explicit clsTabStrip(QObject *parent = nullptr);

    QTabBar *TabStrip() const { return bar_; }
    void SetTabStrip(QTabBar *bar);

    QString TabCaption(int index) const override;
    QString TabKey(int index) override;
    int TabCount() const override;
    void SetTabCount(int count) override;
    QString Caption() const override;
    void SetCaption(const QString &caption) override;
    int TheTab() const override;
    void SetTheTab(int index) override;
    // Height in pixels of the last tab.
    int TabHeight() const;
    // Gives the strip the rectangle (pixels) whose lower edge the tabs stand on.
    void Move(int left, int top, int width, int height);

Q_SIGNALS:
    // Another tab was selected, by the user or by a routine.
    void Click();

private:
    QTabBar &Bar() const;
    int Checked(int index) const;

    QPointer<QTabBar> bar_;
};

} // namespace mainwindow
