#include "mainwindow/HintText.h"

#include "app/settings/Settings.h"

namespace mainwindow {

namespace {
struct HintRow {
    diagram::Hint hint;
    const char *text;
};
constexpr HintRow kRows[] = {
    {diagram::Hint::LinkNeedsNode, "A @LINK starts and ends at a @NODE."},
};
} // namespace

QString HintText(diagram::Hint hint) {
    for (const HintRow &row : kRows)
        if (row.hint == hint) return settings::ReplaceTerms(QString::fromUtf8(row.text));
    return {};
}

} // namespace mainwindow
