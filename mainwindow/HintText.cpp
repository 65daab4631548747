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
    {diagram::Hint::TextTooLong, "The text is too long to be edited in place."},
    {diagram::Hint::SelectFirst, "Select a @NODE or a @LINK first."},
    {diagram::Hint::SelectLink, "Select a @LINK first."},
    {diagram::Hint::CopyNeedsNode, "A @LINK is copied with the @NODEs at both its ends: select these too."},
    {diagram::Hint::NothingToPaste, "The clipboard holds nothing that can be pasted here."},
    {diagram::Hint::TooManyLines, "The text has too many lines to become a @NODE each."},
    {diagram::Hint::CantPaste, "What the clipboard holds can't be read, so nothing was pasted."},
    {diagram::Hint::DragDrawsLink, "Drag to another @NODE to link it, or to an empty place for a new one."},
    {diagram::Hint::DragResizes, "Drag to resize. Shift keeps the proportions, Alt turns snapping off."},
    {diagram::Hint::DragMovesBend, "Drag to move the bend. A double click takes it away."},
    {diagram::Hint::DragMakesBend, "Drag to bend the @LINK."},
    {diagram::Hint::DragMovesEnd, "Drag to another @NODE to join that."},
    {diagram::Hint::KeysChooseNode,
     "From the blue @NODE to the green one. Tab and the arrow keys choose, Enter links, Escape gives up."},
    {diagram::Hint::KeysChooseEnd,
     "From the blue @NODE to the green one. Tab and the arrow keys choose, Enter joins, Escape gives up."},
    {diagram::Hint::KeysTakeNode, "Enter makes the new @NODE, Escape leaves it."},
    {diagram::Hint::KeysBend, "Tab goes along the @LINK, the arrow keys bend it there, Del takes a bend "
                              "away. Enter ends, Escape gives up."},
};
} // namespace

QString HintText(diagram::Hint hint) {
    for (const HintRow &row : kRows)
        if (row.hint == hint) return settings::ReplaceTerms(QString::fromUtf8(row.text));
    return {};
}

} // namespace mainwindow
