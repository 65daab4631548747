// What the forms for the properties of nodes and links, and for the lists of levels and groups, are handed.
#pragma once

#include "dialogs/LinkEdit.h"

#include <QString>
#include <vector>

namespace diagram {
class Link;
class Node;
class Surface;
} // namespace diagram
namespace document {
class cGroups;
class cLevels;
class MapWindow;
} // namespace document

namespace dialogs {

// Everything outlives the form.
struct NodeDialogArgument {
    static constexpr char kForm[] = "frmNodeDialog";
    document::MapWindow &window;
    diagram::Surface &oFlow;
    diagram::Node &oNode; // the one whose values are shown
    bool editsSelection;  // oNode is one of the selected nodes, and these are edited with it
};

struct LinkDialogArgument {
    static constexpr char kForm[] = "frmLinkDialog";
    document::MapWindow &window;
    diagram::Surface &oFlow;
    diagram::Link &oLink;
    std::vector<diagram::Link *> oLinks; // the selected links, when oLink is one of them; else empty
    FormerLinks former = {};             // the links before the first apply; empty when nothing was applied
};

struct LevelsFormArgument {
    static constexpr char kForm[] = "frmLevels";
    document::MapWindow &window;
    document::cLevels &oLevels;
    QString status = {}; // what to say in the status bar after OK, or empty
};

struct GroupsFormArgument {
    static constexpr char kForm[] = "frmGroups";
    document::MapWindow &window;
    document::cGroups &oGroups;
    QString status = {}; // as with the levels
};

} // namespace dialogs
