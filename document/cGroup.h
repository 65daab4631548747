// A group of a map.
#pragma once

#include "support/clsGUID.h"

#include <QString>

namespace document {

struct cGroup {
    QString Key = support::GetGUID(); // good for one run of the program
    bool Selected = false;            // ticked in the filter
    QString GroupName;                // unique; holds no comma
};

} // namespace document
