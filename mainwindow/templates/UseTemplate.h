// What a click on an item of the template bar does to the window.
#pragma once

#include <QPointF>
#include <QString>

namespace mainwindow {

class frmMain;

// Asks whether the template makes a new slice or replaces the content of the current one, unless the user has
// put that question off, and loads it. Nothing happens after a cancel, of the name for the new slice too.
void UseTemplate(frmMain &window, const QString &file);
// Adds the content of the template to the current slice, with its middle at the place (twips).
void AddTemplateAt(frmMain &window, const QString &file, const QPointF &twips);
// Opens the file with its application, after a question where it could run as a program.
void OpenExternal(frmMain &window, const QString &file);

} // namespace mainwindow
