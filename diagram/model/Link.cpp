#include "diagram/model/Link.h"

#include "diagram/model/PropertyTable.h"
#include "diagram/model/Routing.h"

namespace diagram {

template <auto Member, typename T>
void Link::Write(const T &value) {
    const auto &fitting = Fitting<Member>(value, "Link");
    if (data_.*Member == fitting) return;
    Owner().Record(*this);
    data_.*Member = fitting;
    Owner().Notify(*this, PropertyOf<Member>().what);
}

bool Link::OwnBends() const {
    // Finding out changes nothing that can be seen otherwise.
    Owner().routing_->Settle();
    Owner().routing_->Judge(const_cast<Link &>(*this));
    return data_.ownBends;
}

int Link::Zorder() const { return Owner().StackPosition(*this); }

const std::vector<Point> &Link::Route() const {
    Owner().routing_->Settle();
    if (stale_) Owner().routing_->FindRoute(const_cast<Link &>(*this));
    return data_.points;
}

void Link::SetKey(const QString &key) { Write<&LinkData::key>(key); }
void Link::SetSource(Node &node) { SetEnd(&LinkData::source, &Link::source_, node); }
void Link::SetDestination(Node &node) { SetEnd(&LinkData::destination, &Link::destination_, node); }

void Link::SetEnd(ItemId LinkData::*member, Node *Link::*end, Node &node) {
    if (this->*end == &node) return;
    Surface &surface = Owner();
    if (&node.Owner() != &surface) {
        support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Link"));
    }
    surface.routing_->Judge(*this);
    surface.Record(*this);
    surface.routing_->RespaceBeside(*this);
    (this->*end)->Detach(*this);
    this->*end = &node;
    data_.*member = node.Id();
    source_->Attach(*this);
    destination_->Attach(*this);
    stale_ = stale_ || !KeepsPoints();
    surface.routing_->RespaceBeside(*this);
    surface.Notify(*this, Change::Geometry);
}

void Link::SetStyle(int value) {
    const std::uint8_t style = Fitting<&LinkData::style>(value, "Link");
    if (style == data_.style) return;
    Surface &surface = Owner();
    surface.routing_->Judge(*this);
    surface.Record(*this);
    // Bends of the user's last from one free form to another only.
    const auto free = [](int of) { return of == 0 || of == 14; };
    data_.ownBends = data_.ownBends && free(style) && free(data_.style);
    data_.style = style;
    stale_ = stale_ || !KeepsPoints();
    surface.Notify(*this, PropertyOf<&LinkData::style>().what);
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
void Link::SetSelected(bool on) { Owner().Select(*this, on); }
void Link::SetMarked(bool on) { Write<&LinkData::marked>(on); }
void Link::SetRigid(bool on) { Write<&LinkData::rigid>(on); }
void Link::SetOriented(bool on) { Write<&LinkData::oriented>(on); }
void Link::SetAddPointsMode(bool on) { Write<&LinkData::addPointsMode>(on), JudgeAfterSwitch(); }
void Link::SetMovePointsMode(bool on) { Write<&LinkData::movePointsMode>(on), JudgeAfterSwitch(); }

// Whose the points are that came meanwhile is found out among the nodes as they stand now; during a load,
// when all of them stand.
void Link::JudgeAfterSwitch() {
    if (Owner().Loading() || !unjudged_) return;
    Owner().routing_->Settle();
    Owner().routing_->Judge(*this);
}

void Link::SetOwnBends(bool on) {
    Owner().routing_->Judge(*this);
    Write<&LinkData::ownBends>(on);
}
void Link::SetZorder(int position) { Owner().SetStackPosition(*this, position); }
void Link::BringToFront() { Owner().BringToFront(*this); }
void Link::SendToBack() { Owner().SendToBack(*this); }
void Link::Refresh() { Owner().Notify(*this, Change::Look); }

} // namespace diagram
