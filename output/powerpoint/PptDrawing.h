// Drawings of the binary form ([MS-ODRAW]): the shapes of a slide, and the pictures that they show.
#pragma once

#include "output/powerpoint/PptRecords.h"

#include <QRectF>
#include <vector>

namespace powerpoint::binary {

constexpr double kUnitsPerPoint = 8; // 576 an inch

// Places of text that PowerPoint knows ([MS-PPT] 2.13.23), and the kinds of text in them.
enum class Place { MasterTitle = 1, MasterBody = 2, Title = 13 };
enum class TextKind { Title = 0, Body = 1, Other = 4 };

// One drawing: a group of shapes and the background. Drawings are numbered from 1.
class Drawing {
public:
    explicit Drawing(int number);
    void AddText(const QRectF &points, Place place, TextKind kind, const QString &text);
    // `picture` counts the pictures of the file from 1.
    void AddPicture(const QRectF &points, int picture, const QString &name, const QString &description);
    // The PPDrawing record.
    QByteArray Finished() const;
    int ShapeCount() const { return count_; }

private:
    QByteArray Head(int kind, int flags);

    int number_;
    int count_ = 0;
    QByteArray shapes_;
};

// The pictures of a file: the stream that holds them, and the records that list them.
class Pictures {
public:
    // Adds an enhanced metafile; its number, from 1.
    int Add(const QByteArray &emf);
    const QByteArray &Stream() const { return stream_; }
    // The record that lists them; empty without pictures.
    QByteArray Store() const;

private:
    QByteArray stream_, entries_;
    int count_ = 0;
};

// The DrawingGroup record: `shapes` holds the number of shapes of each drawing.
QByteArray DrawingGroup(const std::vector<int> &shapes, const Pictures &pictures);

} // namespace powerpoint::binary
