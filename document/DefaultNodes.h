// The default node: a hidden node with the text "TEMPLATE NODE" that carries the look of new nodes.
#pragma once

#include <QString>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace document {

inline const QString kTemplateNodeText = QStringLiteral("TEMPLATE NODE");
inline const QString kTemplateNodeFile = QStringLiteral("Template.nd");
inline const QString kTimelineTemplateNodeFile = QStringLiteral("Template.tnd");

// The first node in collection order with just this text that is hidden, or null.
diagram::Node *FindHiddenNode(diagram::Surface &Flow, const QString &text);
// A hidden node of no size at the origin that cannot be selected.
diagram::Node &AddHiddenNode(diagram::Surface &Flow, const QString &text);

// The default node, made first where it is missing and Create is true; else null.
diagram::Node *LocateTemplateNode(diagram::Surface &Flow, bool Create);
// Makes the default node unless there is one.
void CreateTemplateNode(diagram::Surface &Flow);
// Copies the default node's look to the surface's defaults for new nodes. Without a default node it does
// nothing.
void ApplyDefaults(diagram::Surface &Flow);
// For a new surface: loads the default node files as far as they exist, the user's own ones first. A file
// that can't be read is told with its name and passed over.
void LoadDefaults(diagram::Surface &Flow);

} // namespace document
