// What the user is told in passing; the window finds the words.
#pragma once

namespace diagram {

enum class Hint : unsigned char {
    Nothing,       // what was told is over
    LinkNeedsNode, // a link was dropped where there is no node
    TextTooLong,   // for editing in place
    SelectFirst,   // a node or a link, before it is linked
    SelectLink,    // before it is bent
    // Why the clipboard stayed as it was, or nothing of it was pasted.
    CopyNeedsNode,  // links were to be copied alone
    NothingToPaste, // no nodes, picture or text
    TooManyLines,   // of a text
    CantPaste,      // what it holds is damaged
    // What a drag from where the pointer is would do, or a click.
    DragDrawsNode,
    DragDrawsShape, // that was chosen
    DragSelects,
    DragMovesNode,
    DragMovesDatedNode, // Alt changes its date
    DragDatesNode,      // which stays at its date
    DragDatesEnd,       // the beginning or the end of such a one
    DragBendsLink,
    ClickSelectsLink,
    DragDrawsLink,
    DragResizes,
    DragMovesBend,
    DragMakesBend,
    DragMovesEnd, // of a link, to another node
    // What the keys do while they lead a gesture.
    KeysChooseNode, // for a new link
    KeysChooseEnd,  // for the end of a link
    KeysBend,       // a link
    KeysTakeNode,   // that is offered at the end of a link
    KeysWrite       // a text in its place
};

// Whether it is about the place of the pointer alone, so that anything else may stand in its stead.
constexpr bool IsOfPointer(Hint hint) { return hint >= Hint::DragDrawsNode && hint <= Hint::DragMovesEnd; }

} // namespace diagram
