#include "diagram/model/Link.h"

#include "diagram/model/PropertyTable.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Selection.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"

namespace diagram {

template <auto Member, typename T>
void Link::Write(const T &value) {
    const auto &fitting = Fitting<Member>(value, "Link");
    if (data_.*Member == fitting) return;
    Owner().WriteTo(*this, PropertyOf<Member>().what, [&] { data_.*Member = fitting; });
}

// Both are worked out when they are first asked for, which changes nothing that anybody else can see.
bool Link::OwnBends() const { return Owner().Routes().OwnBends(const_cast<Link &>(*this)); }

const std::vector<Point> &Link::Route() const { return Owner().Routes().RouteOf(const_cast<Link &>(*this)); }

bool Link::Selected() const { return Owner().Selection().Has(*this); }

int Link::Zorder() const { return Owner().Stacking().Position(*this); }

void Link::SetKey(const QString &key) { Write<&LinkData::key>(key); }
void Link::SetSource(Node &node) { Owner().EndAt(*this, node, *destination_); }
void Link::SetDestination(Node &node) { Owner().EndAt(*this, *source_, node); }

void Link::EndAt(SurfaceKey, Node &source, Node &destination) {
    source_ = &source, destination_ = &destination;
    data_.source = source.Id(), data_.destination = destination.Id();
}

void Link::SetStyle(int value) {
    const std::uint8_t style = Fitting<&LinkData::style>(value, "Link");
    if (style == data_.style) return;
    Routing &routes = Owner().Routes();
    routes.Judge(*this);
    Owner().WriteTo(*this, PropertyOf<&LinkData::style>().what, [&] {
        // Bends of the user's outlast only a change between forms whose bends are free.
        data_.ownBends = data_.ownBends && HasFreeBends(style) && HasFreeBends(data_.style);
        data_.style = style;
        routes.Reroute(*this);
    });
}

void Link::SetArrowSource(int value) { Write<&LinkData::arrowSource>(value); }
void Link::SetArrowDest(int value) { Write<&LinkData::arrowDest>(value); }
void Link::SetArrowMiddle(int value) { Write<&LinkData::arrowMiddle>(value); }
void Link::SetArrowSizeSource(int value) { Write<&LinkData::arrowSizeSource>(value); }
void Link::SetArrowSizeDest(int value) { Write<&LinkData::arrowSizeDest>(value); }
void Link::SetArrowSizeMiddle(int value) { Write<&LinkData::arrowSizeMiddle>(value); }
void Link::SetDrawStyle(int value) { Write<&LinkData::drawStyle>(value); }
void Link::SetDrawWidth(float pixels) { Write<&LinkData::drawWidth>(pixels); }
void Link::SetJumpStyle(int value) { Write<&LinkData::jumpStyle>(value); }
void Link::SetText(const QString &text) { Write<&LinkData::text>(text); }
void Link::SetFont(const diagram::Font &font) { Write<&LinkData::font>(font); }
void Link::SetForeColor(support::Colour colour) { Write<&LinkData::foreColor>(colour); }
void Link::SetLineColor(support::Colour colour) { Write<&LinkData::lineColor>(colour); }
void Link::SetHidden(bool on) { Write<&LinkData::hidden>(on); }
void Link::SetSelectable(bool on) {
    Write<&LinkData::selectable>(on);
    if (!on) SetSelected(false);
}
void Link::SetSelected(bool on) { Owner().Selection().Select(*this, on); }
void Link::SetMarked(bool on) { Write<&LinkData::marked>(on); }
void Link::SetRigid(bool on) { Write<&LinkData::rigid>(on); }
void Link::SetOriented(bool on) { Write<&LinkData::oriented>(on); }
void Link::SetAddPointsMode(bool on) {
    Write<&LinkData::addPointsMode>(on), Owner().Routes().JudgeAfterSwitch(*this);
}
void Link::SetMovePointsMode(bool on) {
    Write<&LinkData::movePointsMode>(on), Owner().Routes().JudgeAfterSwitch(*this);
}

void Link::SetOwnBends(bool on) {
    Owner().Routes().Judge(*this);
    Write<&LinkData::ownBends>(on);
}
void Link::SetZorder(int position) { Owner().Stacking().Move(*this, position); }
void Link::BringToFront() { Owner().Stacking().BringToFront(*this); }
void Link::SendToBack() { Owner().Stacking().SendToBack(*this); }
void Link::Refresh() { Owner().Observers().ItemChanged(*this, Change::Look); }

} // namespace diagram
