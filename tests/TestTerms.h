// The words in which most tests have the program speak.
#pragma once

#include "settings/Settings.h"

namespace tests {

inline settings::ProductTerms TestTerms() {
    settings::ProductTerms terms;
    terms.TITLE = QStringLiteral("Velmora");
    terms.MAP = QStringLiteral("Map");
    terms.SLICE = QStringLiteral("Slice");
    terms.NODE = QStringLiteral("Node");
    terms.LINK = QStringLiteral("Link");
    terms.EXT = QStringLiteral("map");
    terms.MEMORYTEXT = QStringLiteral("Low on memory");
    return terms;
}

} // namespace tests
