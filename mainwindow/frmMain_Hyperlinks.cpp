// A double click on a node with hyperlinks.
#include "mainwindow/frmMain.h"

#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"

#include <QPointer>

namespace mainwindow {

namespace {

const QString kYes = QStringLiteral("Yes");

// The pointer of a window that may be gone at the end.
class Hourglass {
public:
    explicit Hourglass(frmMain &window) : window_(&window) {
        window.SetMousePointer(document::pointer::kHourglass);
    }
    ~Hourglass() {
        if (window_) window_->SetMousePointer(document::pointer::kNormal);
    }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    QPointer<frmMain> window_;
};

std::vector<document::cHyperlink> HyperlinksOf(document::clsfrmMain &settings, const QString &node) {
    std::vector<document::cHyperlink> hyperlinks;
    for (const document::cHyperlink &hyperlink : settings.Hyperlinks())
        if (hyperlink.Node == node) hyperlinks.push_back(hyperlink);
    return hyperlinks;
}

// A key that no tab has selects nothing.
void SelectTabWithKey(clsTabStrip &tabs, const QString &key) {
    for (int tab = 0; tab < tabs.TabCount(); ++tab)
        if (tabs.TabKey(tab) == key) return tabs.SetTheTab(tab);
}

} // namespace

void frmMain::AddFlow1_DblClick(int index) {
    if (!AddFlow1_.Exists(index)) return;
    const diagram::Node *node = AddFlow1_[index].SelectedNode();
    if (node && document::GetTag(*node, document::tags::kHyper) == kYes) FollowAll(node->Key());
}

// On a copy: a hyperlink to this very map can load it anew.
void frmMain::FollowAll(const QString &node) {
    for (const document::cHyperlink &hyperlink : HyperlinksOf(*clsSettings_, QString(node))) {
        const Hourglass hourglass(*this);
        if (frmMain *window = Follow(hyperlink)) {
            window->ShowWindow();
            window->CurrentView().setFocus();
        }
    }
}

// In this map Slice counts from 1, in another one it is the position itself, from 0.
frmMain *frmMain::Follow(const document::cHyperlink &hyperlink) {
    if (!hyperlink.Map.isEmpty()) {
        frmMain *window = DoOpen(hyperlink.Map, true);
        if (window) window->TabStrip().SetTheTab(hyperlink.Slice);
        return window;
    }
    if (hyperlink.SliceKey.isEmpty())
        tabStrip_.SetTheTab(hyperlink.Slice - 1);
    else
        SelectTabWithKey(tabStrip_, hyperlink.SliceKey);
    return this;
}

} // namespace mainwindow
