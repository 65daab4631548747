// The window as the document sees it. frmMain implements it, and so do a plain in-memory window for tests and
// the companion for the command line.
#pragma once

#include "support/Forms.h"

#include <optional>
#include <QString>

namespace document {

class clsfrmMain;
class SurfaceArray;

// The tab strip of a window: one tab a slice, indices from 0.
class Tabs {
public:
    virtual ~Tabs() = default;
    virtual int TabCount() const = 0;
    // Takes the last tabs away, or adds empty ones behind the last.
    virtual void SetTabCount(int count) = 0;
    virtual int TheTab() const = 0;
    virtual void SetTheTab(int index) = 0; // error 380 for a tab that isn't there
    virtual QString Caption() const = 0;   // of the selected tab
    virtual void SetCaption(const QString &caption) = 0;
    virtual QString TabCaption(int index) const = 0;
    virtual QString TabKey(int index) = 0; // made when it is first asked for
};

namespace pointer {
constexpr int kNormal = 0;
constexpr int kHourglass = 11;
} // namespace pointer

class MapWindow {
public:
    virtual ~MapWindow() = default;
    virtual clsfrmMain &clsSettings() = 0;
    virtual Tabs &TabStrip() = 0;
    virtual SurfaceArray &AddFlow1() = 0;
    virtual support::Desktop &Desktop() = 0;
    // What dialogs open above; null for a window that is not on the screen.
    virtual support::Owner Handle() = 0;

    virtual void DoStatus(const QString &text) = 0;
    virtual void SetProgress(int percent) = 0; // of the progress bar; 0 empties it
    virtual void SetMousePointer(int pointer) = 0;
    virtual void SetWindowCaption(const QString &caption) = 0;
    virtual void DoEvents() = 0; // lets pending events run
    virtual void DoResize() = 0;
    virtual void LoadCombos() = 0;
    virtual void ClickTab() = 0;
    virtual void AddFlow1_AfterMove(int index) = 0;
    // After a load: paints the main controls again, tells the window its size, draws the menu bar.
    virtual void RefreshMainControls() = 0;
    virtual void DrawMenuBar() = 0;
    // Whether the months of the current slice are shown; none for a slice without months.
    virtual std::optional<bool> ShowsTimeline() = 0;
};

// Shows the form above the window, with the normal pointer. True when the user chose OK.
template <support::FormArgument Argument>
bool Show(MapWindow &window, Argument &argument) {
    window.SetMousePointer(pointer::kNormal);
    return support::Show(window.Desktop(), argument, window.Handle());
}

} // namespace document
