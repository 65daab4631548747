// What the status bar says in passing.
#pragma once

#include "diagram/interaction/Hint.h"

#include <QString>

namespace mainwindow {

// With the terms of the product; empty for a hint that has no words. %1 stands for the name of the chosen
// shape.
QString HintText(diagram::Hint hint);
// How to begin on an empty page.
QString EmptyPageText();

} // namespace mainwindow
