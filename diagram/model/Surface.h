// A surface: one page of a map, the truth about its nodes, links and points.
#pragma once

#include "diagram/model/ChangeLog.h"
#include "diagram/model/Item.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/SurfaceEvents.h"

#include <memory>
#include <QHash>
#include <QSizeF>
#include <span>
#include <vector>

namespace diagram {

class Routing;
struct HeldRoutes;
struct LinkDraft;

// Distance of the stacking keys of two items added one after the other.
constexpr StackKey kStackGap = 1 << 20;

// The surface's own values that undo keeps when they are written inside a group.
struct SurfaceData {
    QString tag;
    Picture picture;
    support::Colour backColor = support::kWhite;
    std::int32_t xZoom = 100, yZoom = 100; // per cent; 0 fits the content into the window
    bool gridLines = false;
    NodeLook defaults;                 // of new nodes: copied from the default node of the slice
    float grownLeft = 0, grownTop = 0; // see PageGrown; no file keeps them
};

// Which content a surface has, as far as a map file keeps it: what the steps of undo made of it, and what was
// written outside of them. Undoing a step gives the former one back. Unique in the process.
struct Revision {
    std::uint64_t step = 0, outside = 0;
    friend bool operator==(const Revision &, const Revision &) = default;
};

// Where the text measuring for the autosizes comes from; a fixed-width one serves tests.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    // Size in twips of `text` in `font`, wrapped at `width` twips (0 or less: only at line ends).
    virtual QSizeF Measure(const QString &text, const Font &font, double width) = 0;
};

class SurfaceNodes {
public:
    // A node with the surface's defaults, on top of the stacking. Error 380 for a size below 0 or what is no
    // number.
    Node &Add(float left, float top, float width, float height);
    // Constant time; error 5 "Invalid procedure call or argument" for an unknown key.
    Node &Item(const QString &key) const;
    Node &Item(int position) const;       // from 1, in the order of adding; error 9 "Subscript out of range"
    Node *Find(const QString &key) const; // null instead of the error
    int Count() const;
    // Removes all nodes and their links. Inside a group it is recorded, outside it isn't.
    void Clear();

    // Walks in the order of adding. Adding and removing end a walk.
    class Iterator {
    public:
        explicit Iterator(std::vector<std::unique_ptr<Node>>::const_iterator at) : at_(at) {}
        Node &operator*() const { return **at_; }
        Iterator &operator++() { return ++at_, *this; }
        bool operator!=(const Iterator &other) const { return at_ != other.at_; }

    private:
        std::vector<std::unique_ptr<Node>>::const_iterator at_;
    };
    Iterator begin() const;
    Iterator end() const;

private:
    friend class Surface;
    explicit SurfaceNodes(Surface &surface) : surface_(&surface) {}
    Surface *surface_;
};

class Surface {
public:
    Surface();
    ~Surface();
    Surface(const Surface &) = delete;
    Surface &operator=(const Surface &) = delete;

    int Index() const { return index_; } // position in the array AddFlow1
    void SetIndex(int index) { index_ = index; }

    SurfaceNodes Nodes() { return SurfaceNodes(*this); }
    SurfaceNodes Nodes() const { return SurfaceNodes(const_cast<Surface &>(*this)); }
    // All links, in the order of adding.
    std::span<const std::unique_ptr<Link>> Links() const { return links_; }
    Node *FindNode(ItemId id) const; // null when it isn't there; constant time
    Link *FindLink(ItemId id) const;

    // The focus: the item selected last of those that are still selected, or null.
    Node *SelectedNode() const;
    Link *SelectedLink() const;
    const std::vector<Node *> &SelectedNodes() const { return selectedNodes_; } // in the order of selecting
    const std::vector<Link *> &SelectedLinks() const { return selectedLinks_; }
    void UnselectAll();

    const SurfaceData &Data() const { return data_; }
    const QString &Tag() const { return data_.tag; }
    const diagram::Picture &Picture() const { return data_.picture; }
    support::Colour BackColor() const { return data_.backColor; }
    int xZoom() const { return data_.xZoom; }
    int yZoom() const { return data_.yZoom; }
    bool GridLines() const { return data_.gridLines; }
    const NodeLook &Defaults() const { return data_.defaults; }
    void SetTag(const QString &tag);
    void SetPicture(const diagram::Picture &picture);
    void SetBackColor(support::Colour colour);
    void SetxZoom(int percent); // 0 to 10000, error 380
    void SetyZoom(int percent);
    void SetGridLines(bool on);
    void SetDefaults(const NodeLook &defaults);
    // The whole content was moved right and down by that (twips, whole or none), as the page has grown at its
    // left and top. What shows the surface goes along, so that nothing jumps; undo takes it back.
    void PageGrown(float right, float down);

    // Values of the screen, never recorded or stored.
    bool SnapToGrid() const { return snapToGrid_; }
    void SetSnapToGrid(bool on) { snapToGrid_ = on; }
    float GridSize() const { return gridSize_; } // twips
    void SetGridSize(float twips);               // above 0, error 380
    support::Colour GridColor() const { return gridColor_; }
    void SetGridColor(support::Colour colour);
    int GridStyle() const { return gridStyle_; } // 0 dots, 1 crosses, 2 lines
    void SetGridStyle(int style);
    bool ShiftMode() const { return shiftMode_; } // a drag on empty surface selects instead of drawing
    void SetShiftMode(bool on) { shiftMode_ = on; }
    float Width() const { return width_; } // of what is seen, in twips at zoom 100
    float Height() const { return height_; }
    void SetSize(float width, float height) { width_ = width, height_ = height; }
    float xScroll() const { return xScroll_; } // twips
    float yScroll() const { return yScroll_; }
    void SetScroll(float x, float y) { xScroll_ = x, yScroll_ = y; }
    // While on, what is seen of a node is both its texts; its Text is as ever.
    bool ShowsBothTexts() const { return showsBothTexts_; }
    void SetShowsBothTexts(bool on);
    // The surface's own font: shown when nothing
    // is selected.
    const diagram::Font &Font() const { return font_; }
    void SetFont(const diagram::Font &font) { font_ = font; }

    // Groups of changes: one group is one step of undo. Groups nest; only the outermost counts.
    void BeginAction(std::int16_t code);
    // The same, but what is changed becomes part of the last step, as if both had been one group. False, and
    // no group is open, when there is no last step, or something was undone, or a group is open.
    bool ContinueAction();
    void EndAction();
    // Closes all open groups and takes back what was changed in them: a gesture that is given up.
    void CancelAction();
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo(); // nothing to undo: no effect; error 5 while a group is open
    void Redo();
    // Zoom, grid, defaults and the selection are no content. What an open group has changed counts once it is
    // closed.
    diagram::Revision Revision() const;
    // The content is the same as that of another surface had with that revision. Forgets the history.
    void SetRevision(const diagram::Revision &revision);
    void SetLog(std::unique_ptr<ChangeLog> log);
    ChangeLog *Log() const { return log_.get(); }

    // Takes the items away; links of removed nodes go too.
    void Remove(Node &node);
    void Remove(Link &link);
    void Remove(const std::vector<Node *> &nodes, const std::vector<Link *> &links);
    // Removes what is selected, in a group of its own; one step.
    void DeleteSelection();

    // All items from the lowest to the highest. The first call after changes of stacking puts the items that
    // changed in their places.
    const std::vector<Item *> &StackingOrder() const;
    // Restacks at once: the items named stand in ascending order of `position` at just these positions as far
    // as the others leave room; the others keep their order.
    void Restack(const std::vector<std::pair<Item *, int>> &positions);

    // Brings every route up to date.
    void Recalculate();
    // The route that a link would get among the nodes as they stand, without its being there. It stays as it
    // is while the points of the draft are kept.
    std::vector<Point> RouteOf(const LinkDraft &link);
    // Makes links give way to the nodes that have come, moved, grown or been shown since the last time.
    // Reading a route and opening or closing a group do so by themselves.
    void SettleRoutes();
    // Nudges all routed routes apart, as the end of a group does with those that the group has made.
    void TidyRoutes();
    // Takes all routes as they are for right though nodes have changed: they came back to an earlier state.
    void KeepRoutes();
    // The node counts as moved, the link as one whose route something may have come into.
    void MakeWayFor(Node &node);
    void CheckRoute(Link &link);
    // Collects the values that links have had before they gave way, from now until the holder lets it go or
    // another one asks.
    std::shared_ptr<HeldRoutes> HoldRoutes();
    // Whether somebody does that now: something is being dragged.
    bool HoldsRoutes() const;
    // While on, everything is written as it is told: no link gives way or is laid out anew beside another.
    void SetReplaying(bool on);
    // Union of the boxes of nodes and the routes of links, hidden ones left out; empty for none. Twips.
    QRectF Extent() const;

    void AddObserver(SurfaceObserver &observer);
    void RemoveObserver(SurfaceObserver &observer);
    SurfaceEvents &Events() const { return *events_; }
    void SetEvents(SurfaceEvents *events); // null: nobody listens
    TextMeasure *Measure() const { return measure_; }
    void SetMeasure(TextMeasure *measure); // null: no text is measured
    // While on, no node is resized to its picture or text: a map that is being read keeps the sizes that it
    // stores. Nodes aren't resized when it goes off either.
    bool Loading() const { return loading_; }
    void SetLoading(bool on) { loading_ = on; }

    // For undo and for reading files: an item with the identity and values given, in its place in the
    // collection.
    Node &Restore(ItemId id, NodeData data);
    Link &Restore(ItemId id, LinkData data); // error 5 when an end isn't there
    // The values as they are given, without routing; observers are told.
    void Overwrite(Node &node, NodeData data);
    void Overwrite(Link &link, LinkData data);
    void Overwrite(SurfaceData data);
    // Removes everything, resets nothing else, and forgets the history.
    void Reset();
    ItemId NextId() const { return nextId_; }

private:
    friend class Node;
    friend class Link;
    friend class NodeLinks;
    friend class LinkPoints;
    friend class SurfaceNodes;
    friend class Routing;
    friend class Uncounted;

    Link &AddLink(Node &source, Node &destination);
    Node &Insert(std::unique_ptr<Node> node);
    Link &Insert(std::unique_ptr<Link> link);
    void Take(const std::vector<Link *> &links, const std::vector<Node *> &nodes);
    void ReplaceKey(Node &node, const QString &key);
    void EndAt(Link &link, Node &source, Node &destination);
    Item *FindItem(ItemId id) const;
    void NoteId(Item &item);
    void NoteAdded(const Item &item);

    bool Recording() const;
    void PrepareUndo();
    void FinishUndo();
    // Each stands before a write: the log gets the values, of a link with its route up to date.
    void Record(const Node &node);
    void Record(Link &link);
    void RecordSurface();
    void CountWrite();
    void Notify(Item &item, Change what);
    template <auto Member, typename T>
    void Write(const T &value);
    void NotifySurface(Change what);

    // Around a write to the node.
    void BeforeWrite(Node &node, Change what);
    void AfterWrite(Node &node, Change what);
    void BringUpToDate(Link &link);

    void NoteStacked(Item &item);
    void NoteRestacked(Item &item);
    bool MayBeAtEnd(const Item &item, StackKey outermost) const;
    void SetStackPosition(Item &item, int position);
    int StackPosition(const Item &item) const;
    void BringToFront(Item &item);
    void SendToBack(Item &item);
    void WriteStack(Item &item, StackKey key);
    void SpreadKeys(const std::vector<Item *> &order);
    void Select(Item &item, bool on);

    std::vector<std::unique_ptr<Node>> nodes_; // by id, which is the order of adding
    std::vector<std::unique_ptr<Link>> links_;
    std::vector<Item *> byId_; // null for those that are gone: identities are dense
    QHash<QString, Node *> byKey_;
    std::vector<Node *> selectedNodes_;
    std::vector<Link *> selectedLinks_;
    mutable std::vector<Item *> stacking_;  // sorted, but for those of restacked_
    mutable std::vector<Item *> restacked_; // to be put in their places when the order is read
    SurfaceData data_;
    std::vector<SurfaceObserver *> observers_;
    std::unique_ptr<ChangeLog> log_;
    SurfaceEvents *events_;
    TextMeasure *measure_ = nullptr;
    ItemId nextId_ = 1;
    std::uint64_t outside_;
    int uncounted_ = 0;
    StackKey topStack_ = 0, bottomStack_ = 0; // no key lies beyond
    int index_ = 0;
    diagram::Font font_;
    float width_ = 0, height_ = 0;
    float xScroll_ = 0, yScroll_ = 0;
    float gridSize_ = 150;
    support::Colour gridColor_ = support::Rgb(224, 224, 224);
    int gridStyle_ = 2;
    bool snapToGrid_ = false;
    bool shiftMode_ = false;
    bool showsBothTexts_ = false;
    bool loading_ = false;
    std::unique_ptr<Routing> routing_;
};

// While it stands, what is written outside of groups makes no other revision: it follows from what was
// written before, or no map file keeps it.
class Uncounted {
public:
    explicit Uncounted(Surface &surface) : surface_(surface) { ++surface_.uncounted_; }
    ~Uncounted() { --surface_.uncounted_; }
    Uncounted(const Uncounted &) = delete;
    Uncounted &operator=(const Uncounted &) = delete;

private:
    Surface &surface_;
};

// A number that was never given before.
std::uint64_t NextRevisionNumber();

} // namespace diagram
