// What the status bar says in passing.
#pragma once

#include "diagram/interaction/Hint.h"

#include <QString>

namespace mainwindow {

// With the terms of the product; empty for a hint that has no words.
QString HintText(diagram::Hint hint);

} // namespace mainwindow
