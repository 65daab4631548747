// The component's own file: a surface with everything but its picture and back colour.
#pragma once

#include <QByteArray>
#include <QString>

namespace diagram {

class Surface;

// Replaces the content, tag, zooms, grid and defaults of the surface and forgets its history. Keeps picture
// and back colour. Error 53 for a missing file; error 321 "Invalid file format" for anything that isn't such
// a file or is damaged: the surface is then as it was.
void LoadFile(Surface &surface, const QString &path);
// Written beside the target and swapped in.
void SaveFile(const Surface &surface, const QString &path);

// The same as bytes.
QByteArray SaveBytes(const Surface &surface);
void LoadBytes(Surface &surface, const QByteArray &bytes);

// The same as LoadBytes in a group of changes, as one step of undo: the history stays.
void ReplaceBytes(Surface &surface, const QByteArray &bytes);

// The selected nodes and all links between them as bytes, and back: the pasted items come on top, selected,
// moved by `dx`, `dy` twips, as one step of undo. Error 321 as above.
QByteArray SaveSelection(const Surface &surface);
void PasteBytes(Surface &surface, const QByteArray &bytes, float dx, float dy);
// The name of that form on a clipboard.
extern const char *const kSelectionMimeType;

} // namespace diagram
