// Goes where the hyperlinks of a node lead.
#pragma once

namespace diagram {
class Node;
}
namespace document {
struct cHyperlink;
}

namespace mainwindow {

class frmMain;

class HyperlinkFollower {
public:
    explicit HyperlinkFollower(frmMain &window) : window_(window) {}

    // Whether the node's tag says that it has any.
    static bool Follows(const diagram::Node &node);
    // Follows all of the node's, if its tag says that it has any.
    void DoubleClick(const diagram::Node &node);

private:
    // The window that shows the hyperlink's target; null when none was opened.
    frmMain *Follow(const document::cHyperlink &hyperlink);

    frmMain &window_;
};

} // namespace mainwindow
