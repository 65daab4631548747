#include "mainwindow/slices/HyperlinkFollower.h"

#include "diagram/view/SurfaceView.h"
#include "dialogs/HyperlinkEdit.h"
#include "document/Tags.h"
#include "document/WhereItIs.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/window/Hourglass.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"

#include <algorithm>

namespace mainwindow {

namespace {

// The tab of this map to which it leads; -1 for none.
int TabOf(clsTabStrip &tabs, const document::cHyperlink &hyperlink) {
    if (hyperlink.SliceKey.isEmpty()) return hyperlink.Slice - 1;
    for (int tab = 0; tab < tabs.TabCount(); ++tab)
        if (tabs.TabKey(tab) == hyperlink.SliceKey) return tab;
    return -1;
}

// Whether the window holds nothing that a user would miss.
bool IsEmpty(frmMain &window) {
    for (const int slot : window.AddFlow1().Indices())
        for (const diagram::Node &node : window.AddFlow1()[slot].Nodes())
            if (node.Selectable()) return false;
    return true;
}

// While another map is opened: where that fails, the window that was made for it goes again unless it shows
// something.
class NewWindows {
public:
    NewWindows() : before_(frmMain::Forms()) {}
    ~NewWindows() {
        if (opened_) return;
        for (frmMain *form : frmMain::Forms())
            if (std::ranges::find(before_, form) == before_.end() && IsEmpty(*form)) delete form;
    }
    NewWindows(const NewWindows &) = delete;
    NewWindows &operator=(const NewWindows &) = delete;

    void Opened() { opened_ = true; }

private:
    std::vector<frmMain *> before_;
    bool opened_ = false;
};

// Selects the tab to which a hyperlink leads, or says that there is none.
void GoToTab(frmMain &window, int tab) {
    if (tab >= 0 && tab < window.TabStrip().TabCount()) return window.TabStrip().SetTheTab(tab);
    window.Status().TellInPassing(
        settings::ReplaceTerms(frmMain::tr("The @SLICE that this hyperlink leads to is not there.")));
}

} // namespace

bool HyperlinkFollower::Follows(const diagram::Node &node) {
    return document::IsOn(node, document::tags::kHyper);
}

// Goes through copies: a hyperlink to this very map can load it anew, and the node is gone then.
void HyperlinkFollower::DoubleClick(const diagram::Node &node) {
    if (!Follows(node)) return;
    for (const document::cHyperlink &hyperlink : dialogs::HyperlinksOf(window_, node)) {
        const Hourglass hourglass(window_);
        if (frmMain *window = Follow(hyperlink)) {
            window->ShowWindow();
            window->CurrentView().setFocus();
        }
    }
}

// In this map Slice counts from 1, in another one it is the position itself, from 0.
frmMain *HyperlinkFollower::Follow(const document::cHyperlink &hyperlink) {
    if (!hyperlink.Map.isEmpty()) {
        NewWindows windows;
        frmMain *window = window_.DoOpen(document::WhereItIs(hyperlink.Map, window_), true);
        windows.Opened();
        if (window) GoToTab(*window, hyperlink.Slice);
        return window;
    }
    GoToTab(window_, TabOf(window_.TabStrip(), hyperlink));
    return &window_;
}

} // namespace mainwindow
