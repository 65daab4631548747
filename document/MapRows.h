// The rows of nodes, links and bend points of an open map, each table read once in one pass and handed out by
// slice and by link. A table is read when it is asked for the first time, so that a file that ends early
// fails as late as it can.
#pragma once

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "document/FontPool.h"
#include "storage/Database.h"

#include <exception>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace document {

class clsfrmMain;
class Columns;

// Gives each different key of a row a small number, counted from 0 in the order in which they come.
class KeyIndex {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;
    std::uint32_t Intern(std::string_view key);
    std::uint32_t Find(std::string_view key) const; // kNone for an unknown key
    std::string_view KeyOf(std::uint32_t number) const;
    std::size_t Count() const { return ends_.size(); }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = kNone;
    };
    std::size_t SlotOf(std::string_view key, std::uint32_t hash) const;
    void Grow();

    std::vector<Slot> slots_ = std::vector<Slot>(64); // open addressing; a power of two, at most half full
    std::string text_;                                // all keys one behind the other
    std::vector<std::size_t> ends_;                   // of each key in text_
};

struct NodeRow {
    diagram::NodeData data; // without picture; the tag has the group and level keys of this run
    QString picture;        // key in Pictures
    std::uint32_t key = 0;  // in NodeKeys()
    std::int32_t zOrder = 0;
};

struct LinkRow {
    diagram::LinkData data;                    // without key, ends and points
    std::uint32_t source = 0, destination = 0; // in NodeKeys()
    std::uint32_t key = 0;
    std::int32_t zOrder = 0;
};

struct PointRow {
    std::int32_t index = 0;
    float x = 0, y = 0;
};

class MapRows {
public:
    // The pools must have been loaded; group and level names become their keys.
    MapRows(storage::Database &database, clsfrmMain &settings);
    ~MapRows();
    MapRows(const MapRows &) = delete;
    MapRows &operator=(const MapRows &) = delete;

    // The slice's nodes in ascending zOrder, its links in the order of the table; each to be taken once. A
    // row with a value that cannot be read or is out of range raises its error here: 6 "Overflow", 13
    // "Type mismatch", 380 "Invalid property value".
    std::vector<NodeRow> TakeNodes(int slice);
    std::vector<LinkRow> TakeLinks(int slice);
    // The points of a link in ascending index, valid as long as this object. Their table is read once.
    std::span<const PointRow> PointsOf(std::uint32_t link);
    // Whether the map says of these points that their bends are the router's.
    bool AreRouted(std::uint32_t link, std::span<const diagram::Point> points);
    const KeyIndex &NodeKeys() const { return nodeKeys_; }

private:
    template <typename Row>
    struct Bucket {
        std::vector<Row> rows;
        std::exception_ptr failure;
    };
    template <typename Row>
    using Buckets = std::unordered_map<int, Bucket<Row>>;

    template <typename Row, typename Read>
    void ReadInto(Buckets<Row> &buckets, const storage::Recordset &rows, int sliceColumn, Read read);
    template <typename Row>
    static std::vector<Row> Take(Buckets<Row> &buckets, int slice);
    void ReadNodes();
    void ReadLinks();
    void ReadPoints();
    std::uint32_t LinkOfPoint(std::string_view key, std::uint32_t former) const;
    NodeRow ReadNode(const storage::Recordset &rows, const Columns &at);
    LinkRow ReadLink(const storage::Recordset &rows, const Columns &at);
    const QString &TagOf(const storage::Recordset &rows, const Columns &at);
    FontPool &Fonts();

    storage::Database &database_;
    clsfrmMain &settings_;
    std::optional<FontPool> fonts_;
    KeyIndex nodeKeys_, linkKeys_;
    bool nodesRead_ = false, linksRead_ = false, pointsRead_ = false;
    std::optional<std::vector<std::pair<std::uint32_t, std::int32_t>>> routed_; // links and sums, ascending
    Buckets<NodeRow> nodes_;
    Buckets<LinkRow> links_;
    std::vector<PointRow> points_;          // by link
    std::vector<std::uint32_t> firstPoint_; // of each link, and one more for the end
    std::unordered_map<std::uint32_t, std::exception_ptr> pointFailures_;
    std::unordered_map<std::string, QString> tags_; // by tagKey_: the tag with the keys of this run
    std::string tagKey_;                            // tag, group and level of the row at hand, as stored
};

} // namespace document
