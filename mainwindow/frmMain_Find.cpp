// Finding and replacing texts over all slices.
#include "mainwindow/frmMain.h"

#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/ActionGroup.h"
#include "mainwindow/Commands.h"
#include "mainwindow/FindBar.h"

#include <algorithm>
#include <list>
#include <QCoreApplication>
#include <QLocale>
#include <set>

namespace mainwindow {

namespace {

void keyFind(frmMain &window) { window.OpenFindBar(false); }
void keyReplace(frmMain &window) { window.OpenFindBar(true); }
void keyFindNext(frmMain &window) { window.FindNext(1); }
void keyFindPrevious(frmMain &window) { window.FindNext(-1); }

constexpr CommandRow kRows[] = {
    {nullptr, "keyFind", "Find...", EntryKind::Command, keyFind, "find", "", "Ctrl+F", Needs::Nothing, false,
     "Searches texts over all @SLICEs"},
    {nullptr, "keyReplace", "Replace...", EntryKind::Command, keyReplace, "find", "", "Ctrl+H",
     Needs::Nothing, false, "Searches and replaces texts over all @SLICEs"},
    {nullptr, "keyFindNext", "Find next", EntryKind::Command, keyFindNext, "down", "", "F3"},
    {nullptr, "keyFindPrevious", "Find previous", EntryKind::Command, keyFindPrevious, "up", "", "Shift+F3"},
};

// One step on each slice; at the end the nodes whose texts were replaced take the ends of their timeline
// links along.
class Replacing {
public:
    Replacing(frmMain &window, const std::vector<document::FindHit> &hits) : window_(window), hits_(hits) {
        std::set<int> slices;
        for (const document::FindHit &hit : hits)
            if (slices.insert(hit.slice).second) steps_.emplace_back(window.AddFlow1()[hit.slice]);
    }
    ~Replacing() {
        for (const document::FindHit &hit : hits_)
            if (diagram::Node *node = window_.AddFlow1()[hit.slice].FindNode(hit.item))
                AdjustLinksOf({node}, window_.Timeline());
    }
    Replacing(const Replacing &) = delete;
    Replacing &operator=(const Replacing &) = delete;

private:
    frmMain &window_;
    const std::vector<document::FindHit> &hits_;
    std::list<ActionGroup> steps_;
};

} // namespace

std::span<const CommandRow> FindCommands() { return kRows; }

void frmMain::OpenFindBar(bool replacing) {
    findBar_->Open(replacing);
    picRHS_Resize();
    ShowHits();
}

void frmMain::CloseFindBar() {
    findBar_->hide();
    picRHS_Resize();
    CurrentView().setFocus();
}

std::vector<document::FindHit> frmMain::Hits() const {
    return document::FindText(AddFlow1_, clsSettings_->Groups(), clsSettings_->Levels(), findBar_->Sought(),
                              findBar_->Options());
}

// From the place where one is: the hit that was shown last if it is still one, else the first of this slice
// or of those behind it.
void frmMain::ShowHits() {
    const std::vector<document::FindHit> hits = Hits();
    auto at = std::find(hits.begin(), hits.end(), hit_);
    if (at == hits.end())
        at = std::find_if(hits.begin(), hits.end(),
                          [this](const document::FindHit &hit) { return hit.slice >= CurrentIndex(); });
    if (at == hits.end()) at = hits.begin();
    ShowHit(hits, at - hits.begin());
}

void frmMain::FindNext(int step) {
    if (!findBar_->isVisible() || findBar_->Sought().isEmpty()) return OpenFindBar(false);
    const std::vector<document::FindHit> hits = Hits();
    const auto count = std::ptrdiff_t(hits.size());
    if (count == 0) return ShowHit(hits, 0);
    const auto at = std::find(hits.begin(), hits.end(), hit_);
    const std::ptrdiff_t from = at == hits.end() ? (step > 0 ? -1 : 0) : at - hits.begin();
    ShowHit(hits, (from + step + count) % count);
}

void frmMain::ShowHit(const std::vector<document::FindHit> &hits, std::ptrdiff_t at) {
    findBar_->SetCount(int(at) + 1, int(hits.size()));
    if (hits.empty()) return;
    hit_ = hits[std::size_t(at)];
    const std::vector<int> slots = AddFlow1_.Indices();
    const auto slot = std::find(slots.begin(), slots.end(), hit_.slice);
    if (hit_.slice != CurrentIndex()) TabStrip().SetTheTab(int(slot - slots.begin()));
    diagram::Surface &surface = AddFlow1_[hit_.slice];
    surface.UnselectAll();
    QRectF place;
    if (diagram::Node *node = surface.FindNode(hit_.item)) {
        node->SetSelected(true);
        place = node->Bounds();
    } else if (diagram::Link *link = surface.FindLink(hit_.item)) {
        link->SetSelected(true);
        place = ViewOf(hit_.slice).TheScene().Bounds(*link);
    }
    ViewOf(hit_.slice).EnsureVisible(place);
    ScheduleUpdate();
}

void frmMain::ReplaceHits(bool all) {
    support::Report("frmMain", "ReplaceHits", [&] {
        std::vector<document::FindHit> hits = Hits();
        const bool onHit = std::find(hits.begin(), hits.end(), hit_) != hits.end();
        if (hits.empty() || (!all && !onHit)) return FindNext(1);
        if (!all) hits = {hit_};
        int changed = 0;
        {
            const Replacing steps(*this, hits);
            changed = document::ReplaceText(AddFlow1_, hits, findBar_->Sought(), findBar_->Replacement(),
                                            findBar_->Options());
        }
        if (changed > 0) clsSettings_->Dirty = true;
        if (all) {
            ShowHits();
            TellInPassing(tr("Replaced: %1").arg(QLocale().toString(changed)));
        } else {
            FindNext(1);
        }
    });
}

} // namespace mainwindow
