// A selection as the system's clipboard carries it, and what a clipboard holds as nodes and links.
#pragma once

#include <memory>
#include <QPointF>

class QMimeData;

namespace diagram {

class DayStrip;
class Picture;
class Scene;
class Surface;
struct PasteAim;

// The dates of what is copied, beside the own form: a line for each node, empty for one without.
inline constexpr char kDatesMimeType[] = "application/x-velmora-dates";

// The selection in the component's own form with the dates of its nodes, as PNG, as SVG and as text (the
// texts of the nodes, one a line). The pictures are made when somebody asks for them.
std::unique_ptr<QMimeData> SelectionToMime(const Surface &surface, const DayStrip &days);

constexpr long kErrTooManyLines = 6;

bool CanPasteFrom(const QMimeData *data);

// The own form gives its items, an image or a file of one (png, jpeg, gif, bmp, emf, wmf, svg) a node with
// that picture, plain text one node a line; the first of these that the data hold. New items come where
// ShiftForPaste says, and become the selection; the page grows for them, and they keep their dates. One step;
// AfterAddNode for each node made of an image or of text; AfterSelect. Error 321 "Invalid file format" for a
// damaged own form, 481 "Invalid picture", 6 for more than 2,000 lines of text: nothing is changed then.
// False for data without items, picture or words.
bool PasteFrom(Scene &scene, const QMimeData &data, const PasteAim &aim);

// Copies of the selected nodes, with their dates and the links between them, beside them; they become the
// selection. One step; AfterSelect. False when no node is selected.
bool DuplicateSelection(Scene &scene, const PasteAim &aim);

// A node that shows the picture in its own size, smaller where that is out of all proportion, with its middle
// at `middle` (twips) as far as the surface's edges allow. It becomes the selection; one step; AfterAddNode,
// AfterSelect.
void AddPictureNode(Surface &surface, const Picture &picture, const QPointF &middle);

} // namespace diagram
