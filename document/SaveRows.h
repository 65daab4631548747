// Writing the rows of a map.
#pragma once

#include "document/cAttachment.h"
#include "document/FontPool.h"
#include "document/FormerAttachments.h"
#include "document/PicturePool.h"
#include "document/RoutedRows.h"
#include "storage/Database.h"

#include <QHash>
#include <QString>
#include <string>
#include <vector>

namespace diagram {
class Link;
class Node;
class Surface;
} // namespace diagram

namespace document {

class clsfrmMain;
class MapWindow;

// Writes into an open database whose tables are empty.
class RowWriter {
public:
    RowWriter(storage::Database &database, MapWindow &window);

    void WriteSettings();
    // The slice with its nodes and links. `caption` is that of its tab.
    void WriteSlice(diagram::Surface &surface, const QString &caption);
    void WriteGroups();
    void WriteLevels();
    // The named views; without any no table is made.
    void WriteViews();
    void WriteHyperlinks();
    // The bytes of an embedded file that is gone are taken from the map that the attachment was read from or
    // last written to. Error 53, with the node's text, when that map no longer has them.
    void WriteAttachments();

private:
    void NoteItems(diagram::Surface &surface);
    void WriteNodes(diagram::Surface &surface);
    void WriteNode(const diagram::Node &node, int slice);
    void WriteLinks(diagram::Surface &surface);
    void WriteLink(diagram::Link &link, int slice);
    void WritePoints(const diagram::Link &link, std::string_view key);
    void WriteEmbedded(const cAttachment &attachment, storage::Recordset &rows, const QString &field);
    QString TextOfNode(const QString &key) const;
    const std::string &GroupNames(const QString &keys);
    double LevelNumber(const QString &key);

    storage::Database &database_;
    MapWindow &window_;
    clsfrmMain &settings_;
    FontPool fonts_;
    PicturePool pictures_;
    FormerAttachments formerAttachments_;
    storage::PreparedStatement slice_, node_, link_, point_;
    RoutedWriter routed_;
    std::vector<int> positions_;             // in the stacking of the slice, by identity
    std::vector<std::string> nodeKeys_;      // of the slice, by identity
    QHash<QString, std::string> groupNames_; // by the keys of a tag
    QHash<QString, double> levelNumbers_;    // by the key of a tag
};

} // namespace document
