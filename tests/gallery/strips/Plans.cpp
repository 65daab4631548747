#include "tests/gallery/strips/Plans.h"

namespace gallery {

const char *const kStreamNames[kStreams] = {"Product", "Marketing", "Sales", "Operations", "Finance"};

const std::vector<PlanStep> &LaunchSteps() {
    static const std::vector<PlanStep> kSteps = {
        {"Kick-off", 0, 0, -1},
        {"Interviews with\ntwenty customers", 13, 1, 0},
        {"Budget approved", 19, 4, 0},
        {"First sketches", 27, 0, 1},
        {"Supplier chosen", 38, 3, 2},
        {"Prototype", 52, 0, 3},
        {"Name and claim", 55, 1, 1},
        {"Price range", 61, 4, 5},
        {"Pilot customers\nsigned", 74, 2, 5},
        {"Tools ordered", 80, 3, 4},
        {"Design frozen", 95, 0, 5},
        {"Photo shoot", 104, 1, 10},
        {"Pilot begins", 112, 2, 8},
        {"First parts\nfrom the tool", 128, 3, 9},
        {"Safety test", 137, 0, 13},
        {"Web page drafted", 141, 1, 11},
        {"Forecast", 150, 4, 12},
        {"Dealers trained", 166, 2, 12},
        {"Pilot evaluated", 172, 0, 12},
        {"Series released", 189, 0, 18},
        {"Stock filled", 207, 3, 19},
        {"Press days", 214, 1, 15},
        {"Orders open", 221, 2, 17},
        {"Launch", 236, 1, 20},
        {"Look back", 262, 4, 23},
    };
    return kSteps;
}

const std::vector<PlanStep> &DecadeSteps() {
    static const std::vector<PlanStep> kSteps = {
        {"Founded", 0, 4, -1},
        {"First shop", 120, 3, 0},
        {"Own roastery", 330, 3, 1},
        {"Break even", 520, 4, 1},
        {"Brand renewed", 610, 1, 1},
        {"Second shop", 700, 3, 3},
        {"Pre-order by app", 890, 0, 5},
        {"Wholesale opens", 1010, 2, 2},
        {"Club of regulars", 1130, 1, 6},
        {"Loan repaid", 1250, 4, 3},
        {"Third shop", 1400, 3, 9},
        {"Training school", 1530, 3, 10},
        {"Hotels as customers", 1650, 2, 7},
        {"Machine of our own", 1790, 0, 6},
        {"Abroad: first shop", 1980, 2, 12},
        {"Hundred people", 2120, 4, 10},
        {"Fair trade label", 2260, 1, 8},
        {"Franchise tried", 2400, 2, 14},
        {"Second roastery", 2590, 3, 15},
        {"Refill at home", 2700, 0, 13},
        {"Carbon neutral", 2950, 3, 18},
        {"Ten shops", 3100, 2, 17},
        {"Owners step back", 3400, 4, 21},
        {"Ten years", 3640, 1, 0},
    };
    return kSteps;
}

const std::vector<PlanStep> &BarSteps() {
    static const std::vector<PlanStep> kSteps = {
        {"Concept", 30, 0, 9, 25},        {"Prototype", 58, 0, 0, 30},
        {"Go or no go", 92, 0, 1},        {"Build", 95, 0, 2, 60},
        {"Test", 140, 0, 3, 40},          {"Fixes", 182, 0, 4, 20},
        {"Name and brand", 52, 1, 9, 30}, {"Interviews", 3, 1, -1, 18},
        {"Survey", 24, 1, 7, 14},         {"Customer report", 40, 1, 8, 10},
        {"Site", 100, 1, 6, 45},          {"Campaign", 170, 1, 10, 50},
        {"Launch", 224, 2, 11},           {"Trade fair in Munich", 120, 2, -1, 6},
    };
    return kSteps;
}

} // namespace gallery
