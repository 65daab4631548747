// The delivered templates from their texts.
#pragma once

#include <QDir>
#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace product {

// The drawing of a template on an empty surface of the window: a slice (SliceText.h) on which new nodes look
// as the program's default node says. The pools of the window name its levels and groups.
void BuildDrawing(document::MapWindow &window, diagram::Surface &surface, const QString &text,
                  const QDir &edition);
// The template file with that drawing, and with an icon drawn from it.
void BuildTemplateFile(const QString &text, const QDir &edition, const QString &target);

} // namespace product
