#include "product/TemplateText.h"

#include "document/DefaultNodes.h"
#include "document/MemoryWindow.h"
#include "product/LayoutText.h"
#include "product/SliceText.h"
#include "templates/DrawnIcon.h"
#include "templates/SaveAsTemplate.h"
#include "templates/ScratchFile.h"

#include <QFile>

namespace product {

void BuildDrawing(document::MapWindow &window, diagram::Surface &surface, const QString &text,
                  const QDir &edition) {
    document::LoadDefaults(surface);
    NodeKeys keys;
    BuildSlice(window, surface, WrittenOut(ReadText(text), LooksOf(edition)), edition, keys);
}

void BuildTemplateFile(const QString &text, const QDir &edition, const QString &target) {
    document::MemoryWindow window(support::CurrentDesktop());
    diagram::Surface &surface = window.AddFlow1()[0];
    BuildDrawing(window, surface, text, edition);
    const templates::ScratchFile icon(templates::IconFromDrawing(surface));
    QFile::remove(target); // no copy is kept of what an earlier build has made
    templates::SaveAsTemplate(window, surface, icon.Path(), target);
}

} // namespace product
