#include "dialogs/LinkSample.h"

#include "dialogs/LinkEdit.h"

namespace dialogs {

namespace {

constexpr QSize kHint(260, 110); // pixels
// Twips.
constexpr float kEndWidth = 900, kEndHeight = 450;
constexpr float kApartX = 6000, kApartY = 600;
constexpr qsizetype kLongestText = 200; // of what a sample can show

} // namespace

LinkSample::LinkSample(const diagram::Surface &like, QWidget *parent)
    : Sample("LinkSample", like, kHint, parent) {
    diagram::SurfaceNodes nodes = OwnSurface().Nodes();
    diagram::Node &from = nodes.Add(0, 0, kEndWidth, kEndHeight);
    link_ = &from.Links().Add(nodes.Add(kApartX, kApartY, kEndWidth, kEndHeight));
}

void LinkSample::Show(const diagram::LinkData &values) {
    diagram::LinkData shown = values;
    shown.text.truncate(kLongestText);
    WriteLink(*link_, shown);
    update();
}

} // namespace dialogs
