#include "diagram/model/Link.h"

#include "diagram/model/Ranges.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

namespace diagram {

template <typename T>
void Link::Write(T LinkData::*member, T value, Change what) {
    if (data_.*member == value) return;
    Owner().Record(*this);
    data_.*member = std::move(value);
    Owner().Notify(*this, what);
}

bool Link::OwnBends() const {
    // Finding out changes nothing that can be seen otherwise.
    Owner().routing_->Settle();
    Owner().routing_->Judge(const_cast<Link &>(*this));
    return data_.ownBends;
}

int Link::Zorder() const { return Owner().StackPosition(*this); }

const std::vector<Point> &Link::Way() const {
    Owner().routing_->Settle();
    if (stale_) Owner().routing_->Route(const_cast<Link &>(*this));
    return data_.points;
}

void Link::SetKey(const QString &key) { Write(&LinkData::key, key, Change::Data); }
void Link::SetSource(Node &node) { SetEnd(&LinkData::source, &Link::source_, node); }
void Link::SetDestination(Node &node) { SetEnd(&LinkData::destination, &Link::destination_, node); }

void Link::SetEnd(ItemId LinkData::*member, Node *Link::*end, Node &node) {
    if (this->*end == &node) return;
    Surface &surface = Owner();
    if (&node.Owner() != &surface) {
        throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("Link"),
                             QStringLiteral("Invalid procedure call or argument"));
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
    const auto style = std::uint8_t(Checked(IsLinkStyle, value, "Link"));
    if (style == data_.style) return;
    Surface &surface = Owner();
    surface.routing_->Judge(*this);
    surface.Record(*this);
    // Bends of the user's last from one free form to another only.
    const auto free = [](int of) { return of == 0 || of == 14; };
    data_.ownBends = data_.ownBends && free(style) && free(data_.style);
    data_.style = style;
    stale_ = stale_ || !KeepsPoints();
    surface.Notify(*this, Change::Geometry | Change::Look);
}

void Link::SetArrowSource(int value) {
    Write(&LinkData::arrowSource, std::uint8_t(Checked(IsArrow, value, "Link")), Change::Look);
}
void Link::SetArrowDest(int value) {
    Write(&LinkData::arrowDest, std::uint8_t(Checked(IsArrow, value, "Link")), Change::Look);
}
void Link::SetArrowMiddle(int value) {
    Write(&LinkData::arrowMiddle, std::uint8_t(Checked(IsArrow, value, "Link")), Change::Look);
}
void Link::SetArrowSizeSource(int value) {
    Write(&LinkData::arrowSizeSource, std::uint8_t(Checked(IsArrowSize, value, "Link")), Change::Look);
}
void Link::SetArrowSizeDest(int value) {
    Write(&LinkData::arrowSizeDest, std::uint8_t(Checked(IsArrowSize, value, "Link")), Change::Look);
}
void Link::SetArrowSizeMiddle(int value) {
    Write(&LinkData::arrowSizeMiddle, std::uint8_t(Checked(IsArrowSize, value, "Link")), Change::Look);
}
void Link::SetDrawStyle(int value) {
    Write(&LinkData::drawStyle, std::uint8_t(Checked(IsDrawStyle, value, "Link")), Change::Look);
}
void Link::SetDrawWidth(float pixels) {
    Write(&LinkData::drawWidth, Checked(IsDrawWidth, pixels, "Link"), Change::Look);
}
void Link::SetJumpStyle(int value) {
    Write(&LinkData::jumpStyle, std::uint8_t(Checked(IsJumpStyle, value, "Link")), Change::Look);
}
void Link::SetText(const QString &text) { Write(&LinkData::text, text, Change::Text); }
void Link::SetFont(const diagram::Font &font) { Write(&LinkData::font, font, Change::Text); }
void Link::SetForeColor(support::Colour colour) { Write(&LinkData::foreColor, colour, Change::Look); }
void Link::SetLineColor(support::Colour colour) { Write(&LinkData::lineColor, colour, Change::Look); }
void Link::SetHidden(bool on) { Write(&LinkData::hidden, on, Change::Visibility); }
void Link::SetSelectable(bool on) {
    Write(&LinkData::selectable, on, Change::Data);
    if (!on) SetSelected(false);
}
void Link::SetSelected(bool on) { Owner().Select(*this, on); }
void Link::SetMarked(bool on) { Write(&LinkData::marked, on, Change::Look); }
void Link::SetRigid(bool on) { Write(&LinkData::rigid, on, Change::Data); }
void Link::SetOriented(bool on) { Write(&LinkData::oriented, on, Change::Data); }
void Link::SetAddPointsMode(bool on) { Switch(&LinkData::addPointsMode, on); }
void Link::SetMovePointsMode(bool on) { Switch(&LinkData::movePointsMode, on); }

// Whose the points are that came meanwhile is found out among the nodes as they stand now; during a load,
// when all of them stand.
void Link::Switch(bool LinkData::*mode, bool on) {
    Write(mode, on, Change::Data);
    if (Owner().Loading() || !unjudged_) return;
    Owner().routing_->Settle();
    Owner().routing_->Judge(*this);
}
void Link::SetOwnBends(bool on) {
    Owner().routing_->Judge(*this);
    Write(&LinkData::ownBends, on, Change::Data);
}
void Link::SetZorder(int position) { Owner().SetStackPosition(*this, position); }
void Link::BringToFront() { Owner().BringToFront(*this); }
void Link::SendToBack() { Owner().SendToBack(*this); }
void Link::Refresh() { Owner().Notify(*this, Change::Look); }

} // namespace diagram
