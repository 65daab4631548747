// What the fuzz targets share.
#pragma once

#include <cstdlib>

// Ends the process where `truth` isn't: the driver shows which run that was.
inline void Require(bool truth) {
    if (!truth) std::abort();
}
