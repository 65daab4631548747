// The forms for the properties of nodes and links: their names for DialogHost::ShowModal, and the arguments
// that it takes along.
#pragma once

#include <vector>

namespace diagram {
class Link;
class Node;
class Surface;
} // namespace diagram
namespace document {
class MapWindow;
}

namespace dialogs {

inline constexpr char kFormNodeDialog[] = "frmNodeDialog";
inline constexpr char kFormLinkDialog[] = "frmLinkDialog";

// Argument of kFormNodeDialog. Everything outlives the form.
struct NodeDialogArgument {
    document::MapWindow &window;
    diagram::Surface &oFlow;
    diagram::Node &oNode; // the one whose values are shown
    bool editsSelection;  // oNode is one of the selected nodes, and these are edited with it
};

// Argument of kFormLinkDialog.
struct LinkDialogArgument {
    document::MapWindow &window;
    diagram::Surface &oFlow;
    diagram::Link &oLink;
    std::vector<diagram::Link *> oLinks; // the selected links, when oLink is one of them; else empty
};

} // namespace dialogs
