// A window of plain memory: the document without a screen, for the companion on the command line and for
// tests. Records what it was told.
#pragma once

#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"

#include <functional>
#include <QStringList>
#include <vector>

namespace document {

class MemoryTabs : public Tabs {
public:
    int TabCount() const override { return static_cast<int>(tabs_.size()); }
    void SetTabCount(int count) override;
    int TheTab() const override { return current_; }
    void SetTheTab(int index) override;
    QString Caption() const override { return tabs_[static_cast<std::size_t>(current_)].caption; }
    void SetCaption(const QString &caption) override {
        tabs_[static_cast<std::size_t>(current_)].caption = caption;
    }
    QString TabCaption(int index) const override;
    QString TabKey(int index) override;

private:
    struct Tab {
        QString caption, key;
    };
    std::size_t Checked(int index) const;
    std::vector<Tab> tabs_ = std::vector<Tab>(1);
    int current_ = 0;
};

class MemoryWindow : public MapWindow {
public:
    // With the pools of template.tpl, as a new window has them.
    explicit MemoryWindow(support::Desktop &desktop) : desktop_(desktop) {}
    MemoryWindow(support::Desktop &desktop, EmptyPools empty) : desktop_(desktop), settings_(empty) {}

    clsfrmMain &clsSettings() override { return settings_; }
    Tabs &TabStrip() override { return tabs_; }
    SurfaceArray &AddFlow1() override { return surfaces_; }
    support::Desktop &Desktop() override { return desktop_; }
    support::Owner Handle() override { return nullptr; }
    void DoStatus(const QString &text) override { statuses.append(text); }
    void SetProgress(int percent) override { progress.push_back(percent); }
    void SetMousePointer(int value) override { pointers.push_back(value); }
    void SetWindowCaption(const QString &text) override { caption = text; }
    void DoEvents() override { calls.append(QStringLiteral("DoEvents")); }
    void DoResize() override { calls.append(QStringLiteral("DoResize")); }
    void LoadCombos() override { calls.append(QStringLiteral("LoadCombos")); }
    void ClickTab() override { calls.append(QStringLiteral("ClickTab")); }
    void AddFlow1_AfterMove(int index) override;
    void RefreshMainControls() override { calls.append(QStringLiteral("RefreshMainControls")); }
    void DrawMenuBar() override { calls.append(QStringLiteral("DrawMenuBar")); }
    std::optional<bool> ShowsTimeline() override { return showsTimeline; }

    // What the window was told, in order. An AfterMove is "AddFlow1_AfterMove N".
    QStringList statuses, calls;
    std::vector<int> progress, pointers;
    QString caption;
    std::optional<bool> showsTimeline;

private:
    support::Desktop &desktop_;
    clsfrmMain settings_;
    MemoryTabs tabs_;
    SurfaceArray surfaces_;
};

} // namespace document
