#include "mainwindow/slices/HintText.h"

#include "settings/Settings.h"

#include <QCoreApplication>

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
    {diagram::Hint::DragDrawsNode, "Drag to draw a @NODE. Shift and a drag selects."},
    {diagram::Hint::DragDrawsShape, "%1: drag to draw one, or click to place one. Escape ends this."},
    {diagram::Hint::DragSelects, "Drag to select what lies in the rectangle."},
    {diagram::Hint::DragMovesNode,
     "Drag to move the @NODE, with Ctrl to copy it. Click and type to write in it."},
    {diagram::Hint::DragMovesDatedNode,
     "Drag to move the @NODE; with Alt, along the timeline, to change its date."},
    {diagram::Hint::DragDatesNode,
     "Drag along the timeline to change the date of the @NODE, across it for another row. Alt drags freely."},
    {diagram::Hint::DragDatesEnd, "Drag to change the date at this end of the @NODE."},
    {diagram::Hint::DragBendsLink, "Drag to bend the @LINK, click to select it."},
    {diagram::Hint::ClickSelectsLink, "Click to select the @LINK, and type to write at it."},
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
    {diagram::Hint::KeysWrite,
     "Ctrl+Enter or a click elsewhere keeps the text, Enter is a new line, Escape gives "
     "up what was written."},
};
} // namespace

QString HintText(diagram::Hint hint) {
    for (const HintRow &row : kRows)
        if (row.hint == hint)
            return settings::ReplaceTerms(QCoreApplication::translate("HintText", row.text));
    return {};
}

QString EmptyPageText() {
    return settings::ReplaceTerms(QCoreApplication::translate(
        "EmptyPage", "Drag to draw a @NODE, and type to write in it.\n"
                     "Pull one of the circles beside it to another @NODE to link them.\n"
                     "Ctrl+T gives it a date on a timeline.\n"
                     "Or begin with a template from the side."));
}

} // namespace mainwindow
