// Plans as teams make them, for pictures of timelines.
#pragma once

#include <vector>

namespace gallery {

struct PlanStep {
    const char *text;
    int day;       // from the plan's first one
    int stream;    // who does it, from 0
    int after;     // the step that it waits for; -1 for none
    int lasts = 0; // days; 0 for a day without an end
};

constexpr int kStreams = 5;
extern const char *const kStreamNames[kStreams];

// A launch in nine months.
const std::vector<PlanStep> &LaunchSteps();
// Ten years of a company.
const std::vector<PlanStep> &DecadeSteps();

// Steps that last, in the first three streams.
const std::vector<PlanStep> &BarSteps();

} // namespace gallery
