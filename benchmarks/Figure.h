// One line of the table that the figures are printed in.
#pragma once

#include <QString>
#include <vector>

namespace bench {

struct Figure {
    QString name;
    double value;   // not a number where it could not be measured
    QString unit;   // "x" for a ratio
    double bound;   // the most that it may be; 0 for a figure that is only reported
    QString remark; // what a ratio was made of, or how the value was taken
};

using Figures = std::vector<Figure>;

} // namespace bench
