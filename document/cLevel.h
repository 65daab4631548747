// A level of a map.
#pragma once

#include "support/clsGUID.h"
#include "support/Colour.h"

#include <QString>

namespace document {

struct cLevel {
    QString Key = support::GetGUID(); // good for one run of the program
    support::Colour Color = 0;
    bool Selected = false; // ticked in the filter
    QString LevelName;     // unique; upper and lower case differ
};

} // namespace document
