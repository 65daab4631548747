// What a surface file or a copied selection holds, apart from any surface.
#pragma once

#include "diagram/model/Properties.h"

#include <QByteArray>
#include <vector>

namespace diagram {

struct StoredNode {
    ItemId id;
    NodeData data;
};

struct StoredLink {
    ItemId id;
    LinkData data;
};

enum class ContentKind : std::uint8_t { Surface, Selection };

struct Content {
    ContentKind kind = ContentKind::Surface;
    SurfaceData surface;           // without picture and back colour
    std::vector<StoredNode> nodes; // by id
    std::vector<StoredLink> links; // by id
};

// The bytes of the content, with name, version and check sum before them.
QByteArray Encode(const Content &content);

// Error 321 "Invalid file format" for anything but sound content of that kind: every value is in its range,
// identities and node keys are unique, links end at nodes of the content.
Content Decode(QByteArrayView bytes, ContentKind kind);

// The parts of the above: reading a body alone, and putting name, version and check sum before one.
Content DecodeBody(QByteArrayView body, ContentKind kind);
QByteArray Seal(const QByteArray &body);
// The size in bytes of what stands before the body.
qsizetype SealSize();

// Whether surface files hold that property: not picture and back colour, nor how far the page has grown.
bool IsStored(const PropertyRow<SurfaceData> &row);

} // namespace diagram
