// The page of the node dialog for the slice to which a double click on the node leads.
#pragma once

#include "dialogs/HyperlinkEdit.h"

#include <array>
#include <QWidget>

class QCheckBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace dialogs {

class PathLabel;

class HyperlinkPage : public QWidget {
    Q_OBJECT
public:
    // Both outlive the page.
    HyperlinkPage(document::MapWindow &window, diagram::Node &oNode, QWidget *parent);

    // Shows the node's hyperlink. A map that can't be read, and a slice that isn't there, are listed as not
    // found and are no error.
    void Load();
    HyperlinkEdit Edit() const;

    QCheckBox &chkHyperlink() { return *chkHyperlink_; }
    QRadioButton &optLink(int index) { return *optLink_[std::size_t(index)]; }
    PathLabel &lblFilename() { return *lblFilename_; }
    QPushButton &cmdBrowseLink() { return *cmdBrowseLink_; }
    QListWidget &lstSlice() { return *lstSlice_; }
    QLabel &lblNotFound() { return *lblNotFound_; }

    void chkHyperlink_Click();
    void optLink_Click(int index);
    void cmdBrowseLink_Click();

private:
    void Build();
    QGroupBox *BuildSlices();
    void ShowHyperlink(const document::cHyperlink &hyperlink);
    // Shows the path without reading the map.
    void ShowPath(const QString &path);
    void SetLinkFile(const QString &path);
    void ReadLinkFile();
    void ReadOrKeep();
    void LoadLinkSlices(const std::vector<LinkSlice> &slices);
    void SelectSlice(int slice);
    void TellNotFound(const QString &why);

    document::MapWindow &window_;
    diagram::Node &oNode_;
    QCheckBox *chkHyperlink_ = nullptr;
    std::array<QRadioButton *, 2> optLink_{};
    PathLabel *lblFilename_ = nullptr;
    QPushButton *cmdBrowseLink_ = nullptr;
    QGroupBox *fraSlice_ = nullptr;
    QListWidget *lstSlice_ = nullptr;
    QLabel *lblNotFound_ = nullptr;
};

} // namespace dialogs
