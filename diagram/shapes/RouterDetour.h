// The best route between two points round some boxes.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <QPointF>
#include <QRectF>
#include <vector>

namespace diagram {

// What a bend costs; a twip of length costs 1.
constexpr double kBendCosts = 1500;
// Twips by which a route may come nearer to the boxes than the margin.
constexpr double kSlack = 1;
// Round more boxes than this a good route is enough, not the best one, and only corners are bends.
constexpr std::size_t kFewBoxes = 4;

struct FoundRoute {
    std::vector<QPointF> route; // from the middle of one end to that of the other; empty without one
    double cost = std::numeric_limits<double>::infinity();
    double margin = 0; // twips that it keeps from the boxes
};

// Routes between the middles of two boxes: A* over the corners of the boxes in between. One object can be
// asked again and again with other boxes, and keeps its memory.
class Detour {
public:
    Detour(const QRectF &source, const QRectF &destination);
    // Bends lie at the corners of the boxes grown by the margin; round few boxes, a route may also bend once
    // at another place, and is the best one. Empty if every route costs `most` or more.
    FoundRoute Find(const std::vector<QRectF> &boxes, double margin, double most);

private:
    class Line;
    struct Box {
        explicit Box(const QRectF &box);
        QPointF middle, half; // of its size
    };
    // One of the points between which routes are sought. It is settled once the cheapest route there is
    // known.
    struct Stop {
        QPointF at;
        double toEnd;          // in a straight line
        int slope;             // sign of the slope of lines that run into the box of which it is a corner
        double costs = 0;      // from the start; once it is settled
        int before = 0;        // the stop before it; once it is settled
        int rank = kUnsettled; // its number in the order of settling
        int bends = 0;         // from here on at least, one here included; 0 until it was looked at
    };
    // From a settled stop on to another one, not yet looked at; with kAny, to all others.
    struct Leg {
        double promises;   // what a route over it costs at least
        std::int16_t rank; // of the stop that it comes from
        std::int16_t to;
        bool operator>(const Leg &other) const {
            if (promises != other.promises) return promises > other.promises;
            return to != other.to ? to > other.to : rank > other.rank;
        }
    };
    static constexpr int kUnsettled = std::numeric_limits<int>::max();
    static constexpr int kStart = 0, kEnd = 1, kAny = -1;

    void Prepare(const std::vector<QRectF> &boxes, double margin);
    bool AlongCorners(double most);
    void Offer(int from, int to, double most);
    void OfferMore(int from, double most);
    void OfferAll(int from, double most);
    void Settle(int from, int at, double most);
    static bool IsTaut(const Stop &a, const Stop &b);
    double CostOver(int from, int to) const;
    bool SeesEnd(int stop);
    bool IsFree(const QPointF &from, const QPointF &to, bool first, bool last);
    void BendOnce(FoundRoute &found, double most);
    std::vector<QPointF> Tangents(const QPointF &from) const;

    Box source_, destination_;
    std::vector<QRectF> grown_; // the boxes grown by the margin
    std::vector<Box> insides_;  // what of these no route may run through
    std::vector<Stop> stops_;   // the start, the end, and the corners
    std::vector<Leg> legs_;     // a heap
    std::vector<int> order_;    // the stops by rank
    double haste_ = 1;          // weight of what is estimated to lie ahead: above 1, faster and less exact
};

} // namespace diagram
