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
// A route along the boxes may be nearer to them than its bends are; twips.
constexpr double kSlack = 1;
// Round more boxes any good route is taken, not the best, and only corners are bends.
constexpr std::size_t kFewBoxes = 4;

struct FoundRoute {
    std::vector<QPointF> route; // from the middle of one end to that of the other; empty without one
    double cost = std::numeric_limits<double>::infinity();
    double margin = 0; // that it keeps from the boxes
};

// Between the middles of two boxes. It keeps what it has learnt to be asked again with other boxes.
class Detour {
public:
    Detour(const QRectF &source, const QRectF &destination);
    // With bends at the corners of the boxes grown by the margin; round few of them the best route, which may
    // bend at one other place. Nothing that costs `most` or more.
    FoundRoute Find(const std::vector<QRectF> &boxes, double margin, double most);

private:
    class Line;
    struct Box {
        explicit Box(const QRectF &box);
        QPointF middle, half; // of its size
    };
    // One of the points between which routes are sought.
    struct Stop {
        QPointF at;
        double toEnd;      // as the crow flies
        int slope;         // of the lines there that run into the box of which it is a corner: 1 or -1
        double costs = 0;  // from the start; once it is settled
        int before = 0;    // the stop before it
        int turn = kNever; // which it was to be settled
        int bends = 0;     // from here on at least, with that here; 0 until it matters
    };
    // From one stop on to another, not yet looked at; or, without another, to any.
    struct Leg {
        double promises;   // what a route over it costs at least
        std::int16_t turn; // of the one
        std::int16_t to;   // the other
        bool operator>(const Leg &other) const {
            if (promises != other.promises) return promises > other.promises;
            return to != other.to ? to > other.to : turn > other.turn;
        }
    };
    static constexpr int kNever = std::numeric_limits<int>::max();
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
    std::vector<QRectF> grown_; // by the margin
    std::vector<Box> insides_;  // of these, that no route may run through
    std::vector<Stop> stops_;   // the start, the end, and the corners
    std::vector<Leg> legs_;     // a heap
    std::vector<int> order_;    // of settling
    double haste_ = 1;          // above 1, what lies before it counts for more
};

} // namespace diagram
