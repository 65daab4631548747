#include "mainwindow/find/Finder.h"

#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/find/FindBar.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/window/WindowStatus.h"
#include "timeline/AdjustLinks.h"
#include "timeline/DateWords.h"
#include "timeline/LineUp.h"

#include <algorithm>
#include <functional>
#include <list>
#include <map>
#include <QCoreApplication>
#include <QLocale>

namespace mainwindow {

namespace {

void keyFind(frmMain &window) { window.Find().Open(false); }
void keyReplace(frmMain &window) { window.Find().Open(true); }
void keyFindNext(frmMain &window) { window.Find().Next(1); }
void keyFindPrevious(frmMain &window) { window.Find().Next(-1); }

constexpr CommandRow kRows[] = {
    {"mnuEdit", "keyFind", "&Find...", EntryKind::Command, keyFind, "find", "", "Ctrl+F", Needs::Nothing,
     false, "Searches texts over all @SLICEs"},
    {"mnuEdit", "keyReplace", "Repl&ace...", EntryKind::Command, keyReplace, "find", "", "Ctrl+H",
     Needs::Nothing, false, "Searches and replaces texts over all @SLICEs"},
    {"mnuEdit", "keyFindNext", "Find ne&xt", EntryKind::Command, keyFindNext, "down", "", "F3"},
    {"mnuEdit", "keyFindPrevious", "Find pre&vious", EntryKind::Command, keyFindPrevious, "up", "",
     "Shift+F3"},
};

// One step on each slice.
class Replacing {
public:
    Replacing(frmMain &window, const std::vector<document::FindHit> &hits) : window_(window) {
        for (const document::FindHit &hit : hits) {
            diagram::Surface &surface = window.AddFlow1()[hit.slice];
            if (!nodes_.contains(hit.slice)) steps_.emplace_back(surface);
            std::vector<diagram::Node *> &nodes = nodes_[hit.slice];
            if (diagram::Node *node = surface.FindNode(hit.item)) nodes.push_back(node);
        }
    }
    Replacing(const Replacing &) = delete;
    Replacing &operator=(const Replacing &) = delete;

    // Nodes may be as large as their texts: each takes the end of its timeline link along, or goes back to
    // its date.
    void Settle() {
        for (const auto &[slice, nodes] : nodes_) {
            timeline::FollowDates(window_, window_.AddFlow1()[slice], nodes);
            timeline::AdjustLinksOf(nodes);
        }
    }

private:
    frmMain &window_;
    std::map<int, std::vector<diagram::Node *>> nodes_; // by their slices
    std::list<HandlerStep> steps_;
};

} // namespace

std::span<const CommandRow> FindCommands() { return kRows; }

Finder::Finder(frmMain &window, QWidget *place) : window_(window), bar_(new FindBar(place)) {
    QObject::connect(bar_, &FindBar::Changed, bar_, [this] { ShowHits(); });
    QObject::connect(bar_, &FindBar::Next, bar_, [this] { Next(1); });
    QObject::connect(bar_, &FindBar::Previous, bar_, [this] { Next(-1); });
    QObject::connect(bar_, &FindBar::Replace, bar_, [this] { Replace(false); });
    QObject::connect(bar_, &FindBar::ReplaceAll, bar_, [this] { Replace(true); });
    QObject::connect(bar_, &FindBar::Closed, bar_, [this] { Close(); });
}

void Finder::Open(bool replacing) {
    bar_->Open(replacing);
    window_.picRHS_Resize();
    ShowHits();
}

void Finder::Close() {
    bar_->hide();
    window_.picRHS_Resize();
    window_.CurrentView().setFocus();
}

int Finder::TakeBottom(const QRect &rectangle) {
    const int height = bar_->isHidden() ? 0 : bar_->sizeHint().height();
    bar_->setGeometry(rectangle.left(), rectangle.bottom() + 1 - height, rectangle.width(), height);
    return height;
}

std::vector<document::FindHit> Finder::Hits() const {
    timeline::DateWords dates(bar_->Sought(), window_.Desktop().clock.Now().date());
    return document::FindText(window_.AddFlow1(), window_.clsSettings().Groups(),
                              window_.clsSettings().Levels(), bar_->Sought(), bar_->Options(),
                              std::ref(dates));
}

// From the place where one is: the hit that was shown last if it is still one, else the first of this slice
// or of those behind it.
void Finder::ShowHits() {
    const std::vector<document::FindHit> hits = Hits();
    auto at = std::find(hits.begin(), hits.end(), hit_);
    if (at == hits.end())
        at = std::find_if(hits.begin(), hits.end(), [this](const document::FindHit &hit) {
            return hit.slice >= window_.CurrentIndex();
        });
    if (at == hits.end()) at = hits.begin();
    ShowHit(hits, at - hits.begin());
}

void Finder::Next(int step) {
    if (!bar_->isVisible() || bar_->Sought().isEmpty()) return Open(false);
    const std::vector<document::FindHit> hits = Hits();
    const auto count = std::ptrdiff_t(hits.size());
    if (count == 0) return ShowHit(hits, 0);
    const auto at = std::find(hits.begin(), hits.end(), hit_);
    const std::ptrdiff_t from = at == hits.end() ? (step > 0 ? -1 : 0) : at - hits.begin();
    ShowHit(hits, (from + step + count) % count);
}

void Finder::ShowHit(const std::vector<document::FindHit> &hits, std::ptrdiff_t at) {
    bar_->SetCount(int(at) + 1, int(hits.size()));
    if (hits.empty()) return;
    hit_ = hits[std::size_t(at)];
    const std::vector<int> slots = window_.AddFlow1().Indices();
    const auto slot = std::find(slots.begin(), slots.end(), hit_.slice);
    if (hit_.slice != window_.CurrentIndex()) window_.TabStrip().SetTheTab(int(slot - slots.begin()));
    diagram::Surface &surface = window_.AddFlow1()[hit_.slice];
    surface.UnselectAll();
    QRectF place;
    if (diagram::Node *node = surface.FindNode(hit_.item)) {
        node->SetSelected(true);
        place = node->Bounds();
    } else if (diagram::Link *link = surface.FindLink(hit_.item)) {
        link->SetSelected(true);
        place = window_.Views().At(hit_.slice).TheScene().Bounds(*link);
    }
    window_.Views().At(hit_.slice).EnsureVisible(place);
    window_.ScheduleUpdate();
}

void Finder::Replace(bool all) {
    support::Report("frmMain", "ReplaceHits", [&] {
        std::vector<document::FindHit> hits = Hits();
        const bool onHit = std::find(hits.begin(), hits.end(), hit_) != hits.end();
        if (hits.empty() || (!all && !onHit)) return Next(1);
        if (!all) hits = {hit_};
        int changed = 0;
        {
            Replacing steps(window_, hits);
            changed = document::ReplaceText(window_.AddFlow1(), hits, bar_->Sought(), bar_->Replacement(),
                                            bar_->Options());
            if (changed > 0) steps.Settle();
        }
        if (changed > 0) window_.clsSettings().Dirty = true;
        if (all) {
            ShowHits();
            window_.Status().TellInPassing(frmMain::tr("Replaced: %1").arg(QLocale().toString(changed)));
        } else {
            Next(1);
        }
    });
}

} // namespace mainwindow
