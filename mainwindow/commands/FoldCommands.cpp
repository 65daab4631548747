#include "mainwindow/commands/FoldCommands.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/DateText.h"
#include "timeline/Folding.h"
#include "timeline/TimelineNodes.h"

#include <algorithm>

namespace mainwindow {

namespace {

using diagram::StripPiece;
using timeline::PieceOfStrip;

void Tell(frmMain &window, const QString &text) {
    window.Status().TellInPassing(settings::ReplaceTerms(text));
}

std::vector<PieceOfStrip> PiecesOfSelection(const diagram::Surface &surface, StripPiece piece) {
    std::vector<PieceOfStrip> pieces;
    for (const diagram::Node *node : NodesToDate(surface))
        if (const auto date = timeline::ParseDate(timeline::DateOfNode(*node)))
            if (const PieceOfStrip each = timeline::PieceAround(piece, *date);
                std::ranges::count(pieces, each) == 0)
                pieces.push_back(each);
    return pieces;
}

QString InWords(const diagram::Surface &surface, const PieceOfStrip &piece) {
    const QString state =
        timeline::IsFolded(surface, piece) ? timeline::FoldInWords(surface, piece) : frmMain::tr("unfolded");
    return timeline::NameOf(piece) + QStringLiteral(": ") + state;
}

void Fold(frmMain &window, const std::vector<PieceOfStrip> &pieces, bool folded) {
    diagram::Surface &surface = window.CurrentSurface();
    const HandlerStep step(surface);
    for (const PieceOfStrip &piece : pieces) timeline::SetFolded(window, surface, piece, folded);
    window.ClickTab();
}

void ToggleAroundSelection(frmMain &window, StripPiece piece) {
    const diagram::Surface &surface = window.CurrentSurface();
    const std::vector<PieceOfStrip> pieces = PiecesOfSelection(surface, piece);
    if (pieces.empty()) return Tell(window, frmMain::tr("No selected @NODE has a date."));
    const bool folded = std::ranges::all_of(
        pieces, [&](const PieceOfStrip &each) { return timeline::IsFolded(surface, each); });
    Fold(window, pieces, !folded);
    Tell(window, InWords(surface, pieces.front()));
}

} // namespace

void keyFoldMonth(frmMain &window) { ToggleAroundSelection(window, StripPiece::Month); }
void keyFoldQuarter(frmMain &window) { ToggleAroundSelection(window, StripPiece::Quarter); }
void keyFoldYear(frmMain &window) { ToggleAroundSelection(window, StripPiece::Year); }

void keyFoldEmpty(frmMain &window) {
    const diagram::Surface &surface = window.CurrentSurface();
    std::vector<PieceOfStrip> empty;
    for (const diagram::Node *month : timeline::LocateTimelineNodes(surface)) {
        const auto date = timeline::ParseDate(document::GetTag(*month, document::tags::kTheDate));
        if (!date || month->Hidden() || timeline::FoldOf(*month)) continue;
        const PieceOfStrip piece = timeline::PieceAround(StripPiece::Month, *date);
        if (timeline::NodesIn(surface, piece).empty()) empty.push_back(piece);
    }
    if (empty.empty()) return Tell(window, frmMain::tr("Every month in sight has a @NODE, or is folded."));
    Fold(window, empty, true);
    Tell(window, empty.size() == 1 ? frmMain::tr("One month folded.")
                                   : frmMain::tr("%1 months folded.").arg(empty.size()));
}

void keyUnfoldAll(frmMain &window) {
    const HandlerStep step(window.CurrentSurface());
    if (!timeline::UnfoldAll(window, window.CurrentSurface()))
        return Tell(window, frmMain::tr("Nothing is folded."));
    window.ClickTab();
}

void ToggleFold(frmMain &window, const diagram::Node &month, StripPiece piece) {
    const auto date = timeline::ParseDate(document::GetTag(month, document::tags::kTheDate));
    if (!date) return;
    const auto fold = timeline::FoldOf(month);
    const bool unfolds = fold && fold->piece >= piece;
    Fold(window, {unfolds ? *fold : timeline::PieceAround(piece, *date)}, !unfolds);
}

} // namespace mainwindow
