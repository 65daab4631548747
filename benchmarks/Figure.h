// One line of the table that the figures are printed in.
#pragma once

#include <QString>
#include <vector>

namespace bench {

struct Figure {
    QString name;
    double value;
    QString unit;   // "x" for a ratio
    double bound;   // at most; 0 when the figure is only told
    QString remark; // what a ratio was made of, or how the value was taken
};

using Figures = std::vector<Figure>;

} // namespace bench
