#include "diagram/model/Node.h"

#include "diagram/model/Properties.h"
#include "diagram/model/PropertyTable.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Selection.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"

#include <algorithm>

namespace diagram {

// A change touches what the property's row says, and `also` besides.
template <auto Member, typename T>
void Node::Write(const T &value, Change also) {
    const auto &fitting = Fitting<Member>(value, "Node");
    if (data_.*Member == fitting) return;
    Owner().WriteTo(*this, PropertyOf<Member>().what | also, [&] { data_.*Member = fitting; });
}

QString Node::ShownText() const {
    if (data_.event.isEmpty() || !Owner().Screen().ShowsBothTexts()) return data_.text;
    return data_.text + QLatin1String("\r\n") + data_.event;
}

int Node::ZOrder() const { return Owner().Stacking().Position(*this); }

bool Node::Selected() const { return Owner().Selection().Has(*this); }

void Node::SetKey(const QString &key) { Owner().Rename(*this, key); }

void Node::SetLeft(float twips) { SetBounds(twips, data_.top, data_.width, data_.height); }
void Node::SetTop(float twips) { SetBounds(data_.left, twips, data_.width, data_.height); }
void Node::SetWidth(float twips) { SetBounds(data_.left, data_.top, twips, data_.height); }
void Node::SetHeight(float twips) { SetBounds(data_.left, data_.top, data_.width, twips); }

void Node::SetBounds(float left, float top, float width, float height) {
    Checked(IsCoordinate, left, "Node"), Checked(IsCoordinate, top, "Node");
    Checked(IsSize, width, "Node"), Checked(IsSize, height, "Node");
    if (left == data_.left && top == data_.top && width == data_.width && height == data_.height) return;
    Owner().WriteTo(*this, Change::Geometry, [&] {
        data_.left = left, data_.top = top;
        data_.width = width, data_.height = height;
    });
}

void Node::SetShape(int value) { Write<&NodeData::shape>(value), FitToContent(); }
void Node::SetShapeOrientation(int value) { Write<&NodeData::shapeOrientation>(value), FitToContent(); }
void Node::SetDrawStyle(int value) { Write<&NodeData::drawStyle>(value); }
void Node::SetDrawWidth(float pixels) { Write<&NodeData::drawWidth>(pixels), FitToContent(); }
void Node::SetxTextMargin(int pixels) { Write<&NodeData::xTextMargin>(pixels), FitToContent(); }
void Node::SetyTextMargin(int pixels) { Write<&NodeData::yTextMargin>(pixels), FitToContent(); }
void Node::SetAlignment(int value) { Write<&NodeData::alignment>(value); }
void Node::SetShadow(int value) { Write<&NodeData::shadow>(value); }
void Node::SetPicturePos(int value) { Write<&NodeData::picturePos>(value); }
void Node::SetText(const QString &text) { Write<&NodeData::text>(text), FitToContent(); }
void Node::SetEvent(const QString &text) {
    Write<&NodeData::event>(text, Owner().Screen().ShowsBothTexts() ? Change::Text : Change::None);
}
void Node::SetFont(const diagram::Font &font) { Write<&NodeData::font>(font), FitToContent(); }
void Node::SetBorderColor(support::Colour colour) { Write<&NodeData::borderColor>(colour); }
void Node::SetFillColor(support::Colour colour) { Write<&NodeData::fillColor>(colour); }
void Node::SetForeColor(support::Colour colour) { Write<&NodeData::foreColor>(colour); }
void Node::SetHidden(bool on) { Write<&NodeData::hidden>(on); }
void Node::SetSelectable(bool on) {
    Write<&NodeData::selectable>(on);
    if (!on) SetSelected(false);
}
void Node::SetSelected(bool on) { Owner().Selection().Select(*this, on); }
void Node::SetPicture(const diagram::Picture &picture) { Write<&NodeData::picture>(picture), FitToContent(); }
void Node::SetTag(const QString &tag) { Write<&NodeData::tag>(tag); }
void Node::SetMarked(bool on) { Write<&NodeData::marked>(on); }
void Node::SetAutoSize(int value) { Write<&NodeData::autoSize>(value), FitToContent(); }
void Node::SetTransparent(bool on) { Write<&NodeData::transparent>(on); }
void Node::SetLook(const NodeLook &look) {
    if (!IsValid(look)) RaiseInvalidValue("Node");
    NodeData data = data_;
    static_cast<NodeLook &>(data) = look;
    Owner().Overwrite(*this, std::move(data));
    FitToContent();
}
void Node::SetZOrder(int position) { Owner().Stacking().Move(*this, position); }
void Node::BringToFront() { Owner().Stacking().BringToFront(*this); }
void Node::SendToBack() { Owner().Stacking().SendToBack(*this); }
void Node::Refresh() { Owner().Observers().ItemChanged(*this, Change::Look); }

void Node::Attach(SurfaceKey, Link &link) {
    const auto byId = [](const Link *a, const Link *b) { return a->Id() < b->Id(); };
    const auto at = std::lower_bound(links_.begin(), links_.end(), &link, byId);
    if (at == links_.end() || *at != &link) links_.insert(at, &link);
}

void Node::Detach(SurfaceKey, const Link &link) { std::erase(links_, &link); }
void Node::Detach(SurfaceKey, const ItemSet &links) {
    std::erase_if(links_, [&](const Link *link) { return links.Has(link->Id()); });
}

} // namespace diagram
