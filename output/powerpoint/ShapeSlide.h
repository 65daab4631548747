// A slice as native shapes of a slide: nodes as shapes with their text, links as connectors.
#pragma once

#include "output/powerpoint/Slide.h"

#include <functional>
#include <QByteArray>

namespace package {
class Xml;
}
namespace diagram {
class Picture;
}

namespace powerpoint {

// The identities of a part's relations to a picture and, if there is one, to the same picture as SVG. Both
// empty for a picture that can't be shown.
struct PictureIds {
    QString picture, svg;
};
// Adds the picture to the file and relates the slide's part to it.
using AddPicture = std::function<PictureIds(const diagram::Picture &picture)>;

// Writes the shapes from the lowest to the highest, with identities from `nextId` on. Hidden items are left
// out.
void WriteShapes(package::Xml &xml, const Slide &slide, int nextId, const AddPicture &addPicture);

// The element a:blip, which shows the picture.
void WriteBlip(package::Xml &xml, const PictureIds &ids);

} // namespace powerpoint
