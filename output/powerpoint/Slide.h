// What a presentation is made of, whatever form its file has.
#pragma once

#include "output/model/MapOutput.h"
#include "output/powerpoint/Placing.h"

#include <memory>
#include <QDateTime>
#include <QRectF>
#include <QString>

namespace powerpoint {

struct Slide {
    const output::SliceOutput *slice = nullptr;
    int layout = kLayoutBlank;
    QString title; // shown with the layout that has one
    QRectF place;  // of the picture, in points
    bool asShapes = false;
};

// For the document properties of the file.
struct FileProperties {
    QString title;
    QString filter; // its description (FilterText)
    QDateTime made;
};

// A file that is being made: slides come one after the other.
class PresentationFile {
public:
    virtual ~PresentationFile() = default;
    virtual QSizeF SlideSize() const = 0; // points
    virtual int SlideCount() const = 0;
    virtual void Add(const Slide &slide) = 0;
    // The bytes of the file, once all slides are there.
    virtual QByteArray File() = 0;
};

// Office Open XML (ECMA-376). The same slides and properties give the same bytes.
std::unique_ptr<PresentationFile> NewPptxFile(const FileProperties &properties);
// The binary form of PowerPoint 97 to 2003 ([MS-PPT]). Slides are pictures always.
std::unique_ptr<PresentationFile> NewPptFile(const FileProperties &properties);

// The texts of the slice's nodes that are seen, one a line; each line end in a text becomes a blank.
QString NotesOf(const output::SliceOutput &slice);
// The alternative text of the slice's picture: the slice's name and the beginning of its texts.
QString DescriptionOf(const output::SliceOutput &slice);

} // namespace powerpoint
