// Files as the template bar sees them.
#pragma once

#include <QByteArray>
#include <QString>

namespace diagram {
class Surface;
}

namespace templates {

// Whether the last three characters of the name are the ending of templates, in whatever case.
bool HasTemplateEnding(const QString &file);
// Result is true when a surface can load the file. Raises no error.
void TestTemplateFile(const QString &File, bool &Result);

// The surface file of a template, from either kind. Error 53 for a file that is gone, 3343 for one that is
// neither a surface file nor a database, 3078 for a database that is no template.
QByteArray SurfaceFileOf(const QString &file);
// Loads the template into a surface of its own, for a preview: with background and without the node that
// carried it. Keys are the file's. Errors as above, and 321.
void ReadTemplate(diagram::Surface &surface, const QString &file);

} // namespace templates
