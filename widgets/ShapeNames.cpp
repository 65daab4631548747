#include "widgets/ShapeNames.h"

#include "diagram/shapes/Shapes.h"

namespace widgets {

namespace {

// The one shape that is spelled in another way than in the lists of the dialogs.
constexpr int kPunchedTape = 65;

QString CaptionOf(const diagram::ShapeRow &row) {
    return row.value == kPunchedTape ? QStringLiteral("Punched Tape") : QString::fromLatin1(row.name);
}

} // namespace

std::vector<ShapeName> ShapeNames() {
    std::vector<ShapeName> names;
    for (const diagram::ShapeRow &row : diagram::ShapeTable()) names.push_back({row.value, CaptionOf(row)});
    return names;
}

QString ShapeCaption(int value) {
    const diagram::ShapeRow *row = diagram::FindShape(value);
    return row ? CaptionOf(*row) : QString();
}

} // namespace widgets
