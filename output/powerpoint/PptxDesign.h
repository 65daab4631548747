// The parts that all presentations share: theme, master, the two layouts, the master of the notes.
#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>

namespace package {
class Package;
}

namespace powerpoint {

struct DesignNames {
    QString master = QStringLiteral("ppt/slideMasters/slideMaster1.xml");
    QString titleLayout = QStringLiteral("ppt/slideLayouts/slideLayout1.xml");
    QString blankLayout = QStringLiteral("ppt/slideLayouts/slideLayout2.xml");
    QString notesMaster = QStringLiteral("ppt/notesMasters/notesMaster1.xml");
};

// The content types of the parts with slides, by the word for the part: "slide", "notesSlide" and so on.
QString PresentationType(const char *part);

// The size of a page of notes, EMU.
constexpr int kNotesWidth = 6858000, kNotesHeight = 9144000;

void AddDesign(package::Package &file, const DesignNames &names, const QSizeF &slide);

} // namespace powerpoint
