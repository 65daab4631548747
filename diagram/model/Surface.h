// A surface: one page of a map, the truth about its nodes, links and points.
#pragma once

#include "diagram/model/Item.h"
#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "diagram/model/SurfaceEvents.h"
#include "diagram/model/SurfaceObservers.h"

#include <memory>
#include <QHash>
#include <QSizeF>
#include <span>
#include <vector>

namespace diagram {

class Actions;
class ItemSet;
class Routing;
class ScreenValues;
class Selection;
class Stacking;

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

// Where the text measuring for the autosizes comes from; a fixed-width one serves tests.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    // Size in twips of `text` in `font`, wrapped at `width` twips (0 or less: only at line ends).
    virtual QSizeF Measure(const QString &text, const Font &font, double width) = 0;
};

class SurfaceNodes {
public:
    explicit SurfaceNodes(Surface &surface) : surface_(&surface) {}
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
        explicit Iterator(std::span<const std::unique_ptr<Node>>::iterator at) : at_(at) {}
        Node &operator*() const { return **at_; }
        Iterator &operator++() { return ++at_, *this; }
        bool operator!=(const Iterator &other) const { return at_ != other.at_; }

    private:
        std::span<const std::unique_ptr<Node>>::iterator at_;
    };
    Iterator begin() const;
    Iterator end() const;

private:
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
    // In the order of adding.
    std::span<const std::unique_ptr<Node>> AllNodes() const { return nodes_; }
    std::span<const std::unique_ptr<Link>> Links() const { return links_; }
    Node *FindNode(ItemId id) const; // null when it isn't there; constant time
    Link *FindLink(ItemId id) const;
    Node *FindNode(const QString &key) const { return byKey_.value(key, nullptr); }

    // Its parts. What is used most often of them stands below, too.
    diagram::Selection &Selection() { return *selection_; }
    const diagram::Selection &Selection() const { return *selection_; }
    diagram::Stacking &Stacking() { return *stacking_; }
    const diagram::Stacking &Stacking() const { return *stacking_; }
    diagram::Actions &Actions() { return *actions_; }
    const diagram::Actions &Actions() const { return *actions_; }
    ScreenValues &Screen() { return *screen_; }
    const ScreenValues &Screen() const { return *screen_; }
    Routing &Routes() const { return *routing_; }
    SurfaceObservers &Observers() { return observers_; }

    // As of its Selection.
    Node *SelectedNode() const;
    Link *SelectedLink() const;
    const std::vector<Node *> &SelectedNodes() const;
    const std::vector<Link *> &SelectedLinks() const;
    void UnselectAll();
    // As of its Actions.
    void BeginAction(std::int16_t code);
    void EndAction();
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();

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
    // Says that the whole content was moved right and down by so many twips, whole ones or 0, as the page has
    // grown at its left and top. Views scroll by as much, so that nothing jumps; undo takes it back.
    void PageGrown(float right, float down);

    // A node with these values, on top of the stacking. The values aren't checked.
    Node &AddNode(NodeData data);
    // With the values that a link has by itself; error 5 for a node of another surface.
    Link &AddLink(Node &source, Node &destination);
    // Error 457 when another node has the key; an empty one is always allowed.
    void Rename(Node &node, const QString &key);
    // Error 5 for a node of another surface.
    void EndAt(Link &link, Node &source, Node &destination);
    // Takes the items away; links of removed nodes go too.
    void Remove(Node &node);
    void Remove(Link &link);
    void Remove(const std::vector<Node *> &nodes, const std::vector<Link *> &links);
    // Removes what is selected, in a group of its own; one step.
    void DeleteSelection();

    // Union of the boxes of nodes and the routes of links, hidden ones left out; empty for none. Twips.
    QRectF Extent() const;

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

    // How items write: `set` makes the change. Around it the change is recorded, observers are told, and
    // links are marked to be routed anew or to give way.
    template <typename Set>
    void WriteTo(Node &node, Change what, const Set &set) {
        BeforeWrite(node, what);
        set();
        AfterWrite(node, what);
    }
    template <typename Set>
    void WriteTo(Link &link, Change what, const Set &set) {
        BeforeWrite(link);
        set();
        observers_.ItemChanged(link, what);
    }

private:
    Node &Insert(std::unique_ptr<Node> node);
    Link &Insert(std::unique_ptr<Link> link);
    void Take(const std::vector<Link *> &links, const std::vector<Node *> &nodes, const ItemSet &going);
    void TellTaken(const std::vector<std::unique_ptr<Link>> &links,
                   const std::vector<std::unique_ptr<Node>> &nodes);
    void ReplaceKey(Node &node, const QString &key);
    void Attach(Link &link);
    void Reattach(Link &link, Node &source, Node &destination);
    Item *FindItem(ItemId id) const;
    void NoteId(Item &item);
    void BeforeWrite(Node &node, Change what);
    void AfterWrite(Node &node, Change what);
    void BeforeWrite(Link &link);
    void WriteStack(Item &item, StackKey key);
    template <auto Member, typename T>
    void Write(const T &value);

    std::vector<std::unique_ptr<Node>> nodes_; // by id, which is the order of adding
    std::vector<std::unique_ptr<Link>> links_;
    std::vector<Item *> byId_; // null for those that are gone: identities are dense
    QHash<QString, Node *> byKey_;
    SurfaceData data_;
    SurfaceObservers observers_;
    SurfaceEvents *events_;
    TextMeasure *measure_ = nullptr;
    ItemId nextId_ = 1;
    int index_ = 0;
    bool loading_ = false;
    std::unique_ptr<diagram::Selection> selection_;
    std::unique_ptr<diagram::Stacking> stacking_;
    std::unique_ptr<ScreenValues> screen_;
    std::unique_ptr<Routing> routing_;
    std::unique_ptr<diagram::Actions> actions_;
};

} // namespace diagram
