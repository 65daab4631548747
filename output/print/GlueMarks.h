// Marks by which pages of one surface are cut and glued together.
#pragma once

class QPainter;

namespace print {

struct PageLayout;

// Where the part ends that the page stands for: short lines beside it, and the page's place among the others
// ("B2": second across, second down) in a corner. One unit of the painter is a millimetre.
void PaintGlueMarks(QPainter &painter, const PageLayout &layout, int page);

} // namespace print
