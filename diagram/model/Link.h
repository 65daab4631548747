// A link: a routed connector from one node to another, with arrow heads and a label.
#pragma once

#include "diagram/geometry/Point.h"
#include "diagram/model/Font.h"
#include "diagram/model/Item.h"
#include "diagram/model/SurfaceKey.h"
#include "support/Colour.h"

#include <QString>
#include <vector>

namespace diagram {

// The values of a link, as undo and the surface file keep them; their ranges stand in PropertyTable.h.
// `points` holds the whole route, its two ends included.
struct LinkData {
    QString key;
    QString text;
    Font font;
    std::vector<Point> points;
    ItemId source = kNoItem;
    ItemId destination = kNoItem;
    float drawWidth = 1; // pixels at zoom 100
    support::Colour foreColor = support::kBlack;
    support::Colour lineColor = support::kBlack;
    StackKey stack = 0;
    std::uint8_t style = 0;
    std::uint8_t arrowSource = 0, arrowDest = 5, arrowMiddle = 0;
    std::uint8_t arrowSizeSource = 1, arrowSizeDest = 1, arrowSizeMiddle = 1;
    std::uint8_t drawStyle = 0;
    std::uint8_t jumpStyle = 0;
    bool hidden = false;
    bool selectable = true;
    bool marked = false;
    bool rigid = false;
    bool oriented = true;
    // The two point-edit switches: while one is on, the points given are kept and the link isn't routed anew.
    bool addPointsMode = false;
    bool movePointsMode = false;
    // The bends are the user's, not the router's; the router moves only what the ends make it move.
    bool ownBends = false;
};

// The points of a link in order, its two ends included. A link always has at least two. Writing points makes
// its bends the user's, unless a point-edit switch is on.
class LinkPoints {
public:
    explicit LinkPoints(Link &link) : link_(&link) {}
    int Count() const;
    Point Item(int position) const;                 // from 0; error 9 "Subscript out of range"
    void SetItem(int position, const Point &point); // moves that point; error 9
    void Add(float x, float y);                     // appends a point behind the last one
    void Insert(int position, const Point &point);  // error 9
    void Remove(int position);                      // error 9; error 5 when only two are left
    // All points at once; error 5 for fewer than two.
    void Assign(std::vector<Point> points);
    const std::vector<Point> &All() const;

private:
    Link *link_;
};

// Setters as those of Node.
class Link : public Item {
public:
    const LinkData &Data() const { return data_; } // its points may be out of date: see Points

    const QString &Key() const { return data_.key; }
    Node &Source() const { return *source_; }
    Node &Destination() const { return *destination_; }
    int Style() const { return data_.style; }
    int ArrowSource() const { return data_.arrowSource; }
    int ArrowDest() const { return data_.arrowDest; }
    int ArrowMiddle() const { return data_.arrowMiddle; }
    int ArrowSizeSource() const { return data_.arrowSizeSource; }
    int ArrowSizeDest() const { return data_.arrowSizeDest; }
    int ArrowSizeMiddle() const { return data_.arrowSizeMiddle; }
    int DrawStyle() const { return data_.drawStyle; }
    float DrawWidth() const { return data_.drawWidth; }
    int JumpStyle() const { return data_.jumpStyle; }
    const QString &Text() const { return data_.text; }
    const diagram::Font &Font() const { return data_.font; }
    support::Colour ForeColor() const { return data_.foreColor; }
    support::Colour LineColor() const { return data_.lineColor; }
    bool Hidden() const { return data_.hidden; }
    bool Selectable() const { return data_.selectable; }
    bool Selected() const;
    bool Marked() const { return data_.marked; }
    bool Rigid() const { return data_.rigid; }
    bool Oriented() const { return data_.oriented; }
    bool AddPointsMode() const { return data_.addPointsMode; }
    bool MovePointsMode() const { return data_.movePointsMode; }
    // Whether one of the two point-edit switches is on, so that the points stay as given.
    bool KeepsPoints() const { return data_.addPointsMode || data_.movePointsMode; }
    bool OwnBends() const; // worked out first where that isn't known yet
    int Zorder() const;    // as Node::ZOrder
    // Routes the link first when its route is out of date.
    LinkPoints Points() { return LinkPoints(*this); }
    // The same for reading.
    const std::vector<Point> &Route() const;

    void SetKey(const QString &key); // not checked for being unique: link keys don't last
    // Ends the link at another node; error 5 for a node of another surface.
    void SetSource(Node &node);
    void SetDestination(Node &node);
    void SetStyle(int value);
    void SetArrowSource(int value);
    void SetArrowDest(int value);
    void SetArrowMiddle(int value);
    void SetArrowSizeSource(int value);
    void SetArrowSizeDest(int value);
    void SetArrowSizeMiddle(int value);
    void SetDrawStyle(int value);
    void SetDrawWidth(float pixels); // 0 to 32767
    void SetJumpStyle(int value);
    void SetText(const QString &text);
    void SetFont(const diagram::Font &font);
    void SetForeColor(support::Colour colour);
    void SetLineColor(support::Colour colour);
    void SetHidden(bool on);
    void SetSelectable(bool on);
    void SetSelected(bool on); // never recorded
    void SetMarked(bool on);
    void SetRigid(bool on);
    void SetOriented(bool on);
    void SetAddPointsMode(bool on);
    void SetMovePointsMode(bool on);
    void SetOwnBends(bool on);
    void SetZorder(int position);
    void BringToFront();
    void SendToBack();
    void Refresh();

    // For the surface that it lives on.
    Link(SurfaceKey, Surface &surface, ItemId id, LinkData data, Node &source, Node &destination)
        : Item(surface, id, ItemKind::Link),
          data_(std::move(data)),
          source_(&source),
          destination_(&destination) {}
    LinkData &Data(SurfaceKey) { return data_; }
    // The nodes are told by the surface.
    void EndAt(SurfaceKey, Node &source, Node &destination);

private:
    template <auto Member, typename T>
    void Write(const T &value);

    LinkData data_;
    Node *source_;
    Node *destination_;
};

} // namespace diagram
