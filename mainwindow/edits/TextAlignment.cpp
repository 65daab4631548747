#include "mainwindow/edits/TextAlignment.h"

#include "diagram/model/Ranges.h"

namespace mainwindow {

namespace {
constexpr int kFamilySize = 3;
} // namespace

int FamilyOfAlignment(int alignment) { return alignment - alignment % kFamilySize; }

int AlignmentInFamily(int alignment, int family) {
    return diagram::IsAlignment(alignment) ? family + alignment % kFamilySize : alignment;
}

} // namespace mainwindow
