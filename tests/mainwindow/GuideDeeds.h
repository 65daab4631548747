// Steps that are told more than once: by the README and the guide, or by several of their tables.
#pragma once

#include "tests/mainwindow/GuideReader.h"

namespace mainwindow::testing {

void DrawOne(Reader &reader);
void LinkFromBeside(Reader &reader);
void TypeATextOfTwoLines(Reader &reader);
void WriteIntoANode(Reader &reader);
void SelectByABand(Reader &reader);
void ResizeByAHandle(Reader &reader);
diagram::Link &BendByTheMiddle(Reader &reader);
void PlanByDates(Reader &reader);

} // namespace mainwindow::testing
