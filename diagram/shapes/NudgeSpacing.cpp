#include "diagram/shapes/NudgeSpacing.h"

#include <algorithm>
#include <limits>

namespace diagram {

namespace {

constexpr double kSlack = 1e-6;
constexpr int kMostRounds = 12; // of shrinking what doesn't fit
constexpr double kLetGo = -std::numeric_limits<double>::infinity();
constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

// The distances from each place to those before it and those behind it.
class Neighbours {
public:
    Neighbours(std::size_t count, const std::vector<PlaceDistance> &distances)
        : before_(count), after_(count) {
        for (std::size_t i = 0; i < distances.size(); ++i) {
            before_[distances[i].after].push_back(i);
            after_[distances[i].before].push_back(i);
        }
    }
    const std::vector<std::size_t> &Before(std::size_t place) const { return before_[place]; }
    const std::vector<std::size_t> &After(std::size_t place) const { return after_[place]; }

private:
    std::vector<std::vector<std::size_t>> before_, after_;
};

class Spacing {
public:
    Spacing(std::span<const WishedPlace> places, std::vector<PlaceDistance> distances)
        : places_(places), distances_(std::move(distances)), neighbours_(places.size(), distances_) {}

    // Places that are pushed upwards only keep all distances, and so do places that are pushed downwards
    // only. The means of both keep them as well, and lie evenly around the wishes.
    std::vector<double> Run() {
        for (int round = 0; round < kMostRounds && !FindLowest(); ++round) continue;
        FindHighest();
        std::vector<double> result = PushedUp();
        const std::vector<double> down = PushedDown();
        for (std::size_t i = 0; i < result.size(); ++i)
            result[i] = std::clamp((result[i] + down[i]) / 2, places_[i].low, places_[i].high);
        return result;
    }

private:
    // False when distances had to shrink: then places found before may lie higher than they need to.
    bool FindLowest() {
        lowest_.resize(places_.size());
        pusher_.assign(places_.size(), kNone);
        bool fits = true;
        for (std::size_t i = 0; i < places_.size(); ++i) {
            lowest_[i] = places_[i].low;
            for (const std::size_t each : neighbours_.Before(i)) Push(each);
            if (lowest_[i] <= places_[i].high + kSlack) continue;
            fits = false;
            Shrink(i);
            lowest_[i] = places_[i].high;
        }
        return fits;
    }
    void Push(std::size_t distance) {
        const auto &[before, after, apart] = distances_[distance];
        if (lowest_[before] + apart > lowest_[after])
            lowest_[after] = lowest_[before] + apart, pusher_[after] = distance;
    }

    // The row that pushes the place out of its limits gets what room there is, evenly.
    void Shrink(std::size_t place) {
        std::vector<std::size_t> row;
        std::size_t first = place;
        for (; pusher_[first] != kNone; first = distances_[pusher_[first]].before)
            row.push_back(pusher_[first]);
        if (row.empty()) return;
        double room = places_[place].high - places_[first].low;
        if (room < 0) {
            for (const std::size_t each : row) distances_[each].apart = kLetGo;
            return;
        }
        // Those that are narrow already keep what they have.
        std::ranges::sort(row, {}, [this](std::size_t each) { return distances_[each].apart; });
        for (std::size_t i = 0; i < row.size(); ++i) {
            double &apart = distances_[row[i]].apart;
            apart = std::min(apart, room / double(row.size() - i));
            room -= apart;
        }
    }

    void FindHighest() {
        highest_.resize(places_.size());
        for (std::size_t i = places_.size(); i-- > 0;) {
            highest_[i] = places_[i].high;
            for (const std::size_t each : neighbours_.After(i))
                highest_[i] =
                    std::min(highest_[i], highest_[distances_[each].after] - distances_[each].apart);
            highest_[i] = std::max(highest_[i], places_[i].low);
        }
    }

    std::vector<double> PushedUp() const {
        std::vector<double> at(places_.size());
        for (std::size_t i = 0; i < at.size(); ++i) {
            at[i] = std::max(places_[i].wish, places_[i].low);
            for (const std::size_t each : neighbours_.Before(i))
                at[i] = std::max(at[i], at[distances_[each].before] + distances_[each].apart);
            at[i] = std::min(at[i], highest_[i]);
        }
        return at;
    }

    std::vector<double> PushedDown() const {
        std::vector<double> at(places_.size());
        for (std::size_t i = at.size(); i-- > 0;) {
            at[i] = std::min(places_[i].wish, places_[i].high);
            for (const std::size_t each : neighbours_.After(i))
                at[i] = std::min(at[i], at[distances_[each].after] - distances_[each].apart);
            at[i] = std::max(at[i], lowest_[i]);
        }
        return at;
    }

    std::span<const WishedPlace> places_;
    std::vector<PlaceDistance> distances_;
    Neighbours neighbours_;
    std::vector<double> lowest_, highest_; // that leave room for the others
    std::vector<std::size_t> pusher_;      // of each place, the distance that decides its lowest value
};

} // namespace

std::vector<double> SpaceOut(std::span<const WishedPlace> places, std::vector<PlaceDistance> distances) {
    return Spacing(places, std::move(distances)).Run();
}

} // namespace diagram
