#include "mainwindow/commands/FormatCommands.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/commands/TimelineCommands.h"
#include "mainwindow/controls/PickBox.h"
#include "mainwindow/controls/ShapeMenu.h"
#include "mainwindow/edits/HandlerStep.h"
#include "mainwindow/edits/Selection.h"
#include "mainwindow/edits/TextAlignment.h"
#include "mainwindow/frmMain.h"
#include "settings/Settings.h"
#include "support/Val.h"
#include "timeline/AdjustLinks.h"
#include "timeline/Arrange.h"
#include "timeline/LineUp.h"
#include "timeline/TimelineNodes.h"

namespace mainwindow {

namespace {

constexpr float kNewElementSide = 1300; // twips

template <typename Change>
void ForSelected(diagram::Surface &flow, Change change) {
    for (diagram::Node *node : flow.SelectedNodes()) change(*node), node->Refresh();
    for (diagram::Link *link : flow.SelectedLinks()) change(*link), link->Refresh();
}

// Each item changes by itself: what was flipped in a mixed selection stays mixed.
template <typename Change>
void ChangeFonts(frmMain &window, Change change) {
    ForSelected(window.CurrentSurface(), [&](auto &item) {
        diagram::Font font = item.Font();
        change(font);
        item.SetFont(font);
    });
    const std::vector<diagram::Node *> nodes = window.CurrentSurface().SelectedNodes();
    timeline::FollowDates(window, window.CurrentSurface(), nodes); // sizes may follow the texts
    timeline::AdjustLinksOf(nodes);
}

void FormatBold(frmMain &window) {
    ChangeFonts(window, [](diagram::Font &font) { font.SetBold(!font.Bold()); });
}
void FormatItalic(frmMain &window) {
    ChangeFonts(window, [](diagram::Font &font) { font.SetItalic(!font.Italic()); });
}
void FormatUnderline(frmMain &window) {
    ChangeFonts(window, [](diagram::Font &font) { font.SetUnderline(!font.Underline()); });
}

void Align(frmMain &window, int family) {
    for (diagram::Node *node : window.CurrentSurface().SelectedNodes()) {
        node->SetAlignment(AlignmentInFamily(node->Alignment(), family));
        node->Refresh();
    }
}
void FormatLeft(frmMain &window) { Align(window, kLeftAlignments); }
void FormatCenter(frmMain &window) { Align(window, kCentreAlignments); }
void FormatRight(frmMain &window) { Align(window, kRightAlignments); }

void FormatFront(frmMain &window) {
    ForSelected(window.CurrentSurface(), [](auto &item) { item.BringToFront(); });
}
void FormatBack(frmMain &window) {
    ForSelected(window.CurrentSurface(), [](auto &item) { item.SendToBack(); });
}

void FormatNew(frmMain &window) { window.tlbFormat_ButtonMenuClick(ShapeEntries().front().tag); }

// The texts themselves stay as they are, so that the display is nothing to undo or to save.
void FormatDisplay(frmMain &window) {
    for (const int slot : window.AddFlow1().Indices())
        window.AddFlow1()[slot].Screen().SetShowsBothTexts(window.DisplayPressed());
}

// Factors for the length of the months along the timeline.
constexpr float kExpand = 1.1F, kCompress = 0.9F;

void FormatExpand(frmMain &window) { timeline::StretchAxis(window, window.CurrentSurface(), kExpand); }
void FormatCompress(frmMain &window) { timeline::StretchAxis(window, window.CurrentSurface(), kCompress); }

constexpr FormatRow kRows[] = {
    {"NEW", FormatNew},
    {"LEFT", FormatLeft},
    {"CENTER", FormatCenter},
    {"RIGHT", FormatRight},
    {"BOLD", FormatBold},
    {"ITALIC", FormatItalic},
    {"ULINE", FormatUnderline},
    {"FRONT", FormatFront},
    {"BACK", FormatBack},
    {"DISPLAY", FormatDisplay},
    {"EXPAND", FormatExpand},
    {"COMPRESS", FormatCompress},
    {"LINEUP", mnuViewTimelineLineUp},
};

} // namespace

const FormatRow *FindFormat(const QString &key) {
    for (const FormatRow &row : kRows)
        if (key == QLatin1String(row.key)) return &row;
    return nullptr;
}

// "Unknow" is what users know it by.
void ShowUnknownButton(support::Desktop &desktop, const QString &key) {
    desktop.messageBoxes.Show(QStringLiteral("Unknow Key ") + key, support::Buttons::Ok, support::Icon::None,
                              settings::Terms().TITLE);
}

// Every button makes the map dirty, also those that change nothing.
void frmMain::tlbFormat_ButtonClick(const QString &key) {
    support::Report("frmMain", "tlbFormat_ButtonClick", [&] {
        clsSettings_->Dirty = true;
        const HandlerStep step(CurrentSurface());
        if (const FormatRow *row = FindFormat(key))
            row->routine(*this);
        else
            ShowUnknownButton(desktop_, key);
    });
}

// Choosing a font or a size is a step of undo like any other, and leaves Dirty as it is.
void frmMain::cboFont_Click() {
    support::Report("frmMain", "cboFont_Click", [&] {
        const HandlerStep step(CurrentSurface());
        ChangeFonts(*this, [name = cboFont().currentText()](diagram::Font &font) { font.SetName(name); });
    });
}

void frmMain::cboFontSize_Click() {
    support::Report("frmMain", "cboFontSize_Click", [&] {
        const int size = support::CInt(support::Val(cboFontSize().currentText()));
        const HandlerStep step(CurrentSurface());
        ChangeFonts(*this, [size](diagram::Font &font) { font.SetSize(size); });
    });
}

void frmMain::tlbFormat_ButtonMenuClick(int tag) {
    support::Report("frmMain", "tlbFormat_ButtonMenuClick", [&] {
        diagram::Surface &surface = CurrentSurface();
        const HandlerStep step(surface);
        DoSelectAll(surface, false);
        diagram::Node &node = surface.Nodes().Add(0, 0, kNewElementSide, kNewElementSide);
        node.SetShape(tag);
        node.SetSelected(true);
        AddFlow1_AfterAddNode(surface.Index(), node);
        CurrentView().EnsureVisible(node.Bounds());
    });
}

} // namespace mainwindow
