// What the attachments page of the node dialog does to a node's attachments.
#pragma once

#include <QString>
#include <vector>

namespace diagram {
class Node;
}
namespace document {
class MapWindow;
}

namespace dialogs {

// A row of the page.
struct AttachmentEdit {
    QString Key; // of the attachment; empty for a new one that has none yet
    QString Filename;
    bool Embed = false;
    friend bool operator==(const AttachmentEdit &, const AttachmentEdit &) = default;
};

// The largest file that a map can hold, in bytes.
constexpr qint64 kLargestEmbedded = 900'000'000;

// The rows of the node's attachments, in the order of the pool.
std::vector<AttachmentEdit> AttachmentsOf(document::MapWindow &window, const diagram::Node &oNode);

// Why the rows can't be applied, as a sentence or two for the user; empty when they can. Refused are a file
// to be embedded that isn't there, can't be read or is a folder, one that is larger than kLargestEmbedded,
// and an embedded one that would lose its only copy because its tick was taken away. What was embedded before
// and is gone is not refused here: saving finds its bytes in the former file, or tells.
QString WhyAttachmentsAreRefused(document::MapWindow &window, const diagram::Node &oNode,
                                 const std::vector<AttachmentEdit> &rows);

// Puts the rows in the place of all attachments of the node, which gets a key if it has none, and marks the
// map. A row keeps its key. A file that is embedded anew is copied into the window's folder at once, and its
// attachment names the copy: the rows to show afterwards are those of AttachmentsOf. After an error of the
// copying (support/AtomicFile.h) the attachments are as they were.
void ApplyAttachments(document::MapWindow &window, diagram::Node &oNode,
                      const std::vector<AttachmentEdit> &rows);

// What stands where an attachment points to.
enum class FileState {
    NotChosen,
    Found,
    FoundBeside, // gone from its place, but below the map's folder
    Folder,
    NotFound,
    OnNetwork, // not looked at
};
struct AttachedFile {
    FileState state = FileState::NotChosen;
    QString path;    // where it is; as it is named unless it was found
    qint64 size = 0; // bytes; of a file that was found
};
AttachedFile LookAt(document::MapWindow &window, const QString &filename);

} // namespace dialogs
