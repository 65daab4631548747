// A node: a box in one of the shapes, with two texts, look, picture and tag.
#pragma once

#include "diagram/model/Font.h"
#include "diagram/model/Item.h"
#include "diagram/model/Picture.h"
#include "diagram/model/SurfaceKey.h"
#include "support/Colour.h"

#include <QRectF>
#include <QString>
#include <vector>

namespace diagram {

class ItemSet;

// What a node looks like apart from its text, size and place. New nodes take it over from the default node.
struct NodeLook {
    Font font;
    float drawWidth = 1; // pixels at zoom 100
    support::Colour borderColor = support::kBlack;
    support::Colour fillColor = support::kWhite;
    support::Colour foreColor = support::kBlack;
    std::uint8_t shape = 1;
    std::uint8_t shapeOrientation = 0;
    std::uint8_t drawStyle = 0;
    std::uint8_t alignment = 7;
    std::uint8_t shadow = 0;
    std::uint8_t picturePos = 7;
    std::uint8_t autoSize = 0;
    friend bool operator==(const NodeLook &, const NodeLook &) = default;
};

// The values of a node, as undo and the surface file keep them. Their ranges stand in PropertyTable.h.
struct NodeData : NodeLook {
    QString key;
    QString text;
    QString event;
    QString tag;
    Picture picture;
    float left = 0, top = 0, width = 0, height = 0; // twips
    std::int32_t xTextMargin = 0, yTextMargin = 0;  // pixels at zoom 100
    StackKey stack = 0;
    bool hidden = false;
    bool selectable = true;
    bool marked = false;
    bool transparent = false;
    friend bool operator==(const NodeData &, const NodeData &) = delete; // would compare the looks alone
};

// The links attached to a node, leaving and arriving, in the order in which the links were added to the
// surface; a link from a node to itself stands in it once.
class NodeLinks {
public:
    NodeLinks(const Node &node, const std::vector<Link *> &links) : node_(&node), links_(&links) {}
    // A link from this node to `destination`, with the surface's defaults, on top of the stacking. Error 5
    // for a node of another surface.
    Link &Add(Node &destination);
    int Count() const;
    Link &Item(int position) const;       // from 1; error 9 "Subscript out of range"
    Link &Item(const QString &key) const; // error 5 "Invalid procedure call or argument"
    // Takes the link out of the surface.
    void Remove(const QString &key);
    std::vector<Link *>::const_iterator begin() const;
    std::vector<Link *>::const_iterator end() const;

private:
    const Node *node_;
    const std::vector<Link *> *links_;
};

// Setters write through the surface: they tell its observers, and they are recorded while a group is open. A
// value out of range is error 380 "Invalid property value" and changes nothing.
class Node : public Item {
public:
    const NodeData &Data() const { return data_; }
    const NodeLook &Look() const { return data_; }

    const QString &Key() const { return data_.key; }
    float Left() const { return data_.left; }
    float Top() const { return data_.top; }
    float Width() const { return data_.width; }
    float Height() const { return data_.height; }
    QRectF Bounds() const { return {data_.left, data_.top, data_.width, data_.height}; } // the box, in twips
    int Shape() const { return data_.shape; }
    int ShapeOrientation() const { return data_.shapeOrientation; }
    int DrawStyle() const { return data_.drawStyle; }
    float DrawWidth() const { return data_.drawWidth; }
    int xTextMargin() const { return data_.xTextMargin; }
    int yTextMargin() const { return data_.yTextMargin; }
    int Alignment() const { return data_.alignment; }
    int Shadow() const { return data_.shadow; }
    int PicturePos() const { return data_.picturePos; }
    const QString &Text() const { return data_.text; }
    const QString &Event() const { return data_.event; }
    // What is seen of them: the text, and below it the second one while the surface shows both.
    QString ShownText() const;
    // The box as it is painted: that of a node that takes the size of its text has room for both while both
    // are shown. Links and resizing go by the box itself.
    QRectF ShownBounds() const;
    const diagram::Font &Font() const { return data_.font; }
    support::Colour BorderColor() const { return data_.borderColor; }
    support::Colour FillColor() const { return data_.fillColor; }
    support::Colour ForeColor() const { return data_.foreColor; }
    bool Hidden() const { return data_.hidden; }
    bool Selectable() const { return data_.selectable; }
    bool Selected() const;
    const diagram::Picture &Picture() const { return data_.picture; }
    const QString &Tag() const { return data_.tag; }
    bool Marked() const { return data_.marked; }
    int AutoSize() const { return data_.autoSize; }
    bool Transparent() const { return data_.transparent; }
    // Stacking position among all nodes and links of the surface, 0 lowest. The first call after a change of
    // stacking sorts what has changed.
    int ZOrder() const;
    NodeLinks Links() const { return {*this, links_}; }

    // Error 457 "This key is already associated with an element of this collection" when another node has it;
    // an empty key is always allowed.
    void SetKey(const QString &key);
    void SetLeft(float twips);
    void SetTop(float twips);
    void SetWidth(float twips);  // 0 or more
    void SetHeight(float twips); // 0 or more
    // All four at once: one change.
    void SetBounds(float left, float top, float width, float height);
    void SetShape(int value);
    void SetShapeOrientation(int value);
    void SetDrawStyle(int value);
    void SetDrawWidth(float pixels); // 0 to 32767
    void SetxTextMargin(int pixels);
    void SetyTextMargin(int pixels);
    void SetAlignment(int value);
    void SetShadow(int value);
    void SetPicturePos(int value);
    void SetText(const QString &text);
    void SetEvent(const QString &text);
    void SetFont(const diagram::Font &font);
    void SetBorderColor(support::Colour colour);
    void SetFillColor(support::Colour colour);
    void SetForeColor(support::Colour colour);
    void SetHidden(bool on);
    void SetSelectable(bool on);
    void SetSelected(bool on); // never recorded
    void SetPicture(const diagram::Picture &picture);
    void SetTag(const QString &tag);
    void SetMarked(bool on);
    void SetAutoSize(int value);
    void SetTransparent(bool on);
    void SetLook(const NodeLook &look); // all of it at once: one change
    // Moves the item to the position, counted without itself; beyond the last it comes to the top.
    void SetZOrder(int position);
    void BringToFront();
    void SendToBack();
    // Asks observers to paint the node again.
    void Refresh();

    // For the surface that it lives on.
    Node(SurfaceKey, Surface &surface, ItemId id, NodeData data)
        : Item(surface, id, ItemKind::Node), data_(std::move(data)) {}
    NodeData &Data(SurfaceKey) { return data_; }
    void Attach(SurfaceKey, Link &link);
    void Detach(SurfaceKey, const Link &link);
    void Detach(SurfaceKey, const ItemSet &links);

private:
    template <auto Member, typename T>
    void Write(const T &value, Change also = Change::None);
    void FitToContent();

    NodeData data_;
    std::vector<Link *> links_;
};

} // namespace diagram
