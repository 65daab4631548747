#include "diagram/view/SurfaceClipboard.h"

#include "diagram/edit/History.h"
#include "diagram/export/PictureKinds.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/interaction/CopiedDates.h"
#include "diagram/interaction/GrowPage.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/DayStrip.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/PastePlace.h"
#include "diagram/view/PictureMime.h"
#include "support/Error.h"

#include <algorithm>
#include <QImage>
#include <QLocale>
#include <QMimeData>
#include <QStringTokenizer>

namespace diagram {

namespace {

constexpr qsizetype kMostLines = 2000;    // of pasted text
constexpr double kLargestPicture = 12000; // longest side of a pasted picture, twips
constexpr QSizeF kTextNode{2400, 600};
constexpr float kTextGap = 150;
constexpr int kRectangle = 1;

constexpr PictureFormat kSelectionForms[] = {PictureFormat::Png, PictureFormat::Svg};

class SelectionMime : public PictureMime {
public:
    SelectionMime(const QByteArray &bytes, const QByteArray &dates, const QString &text)
        : PictureMime(kSelectionForms), bytes_(bytes) {
        setData(QString::fromLatin1(kSelectionMimeType), bytes);
        if (!dates.isEmpty()) setData(QString::fromLatin1(kDatesMimeType), dates);
        setText(text);
    }

protected:
    void Fill(Surface &copy) const override {
        PasteBytes(copy, bytes_, 0, 0);
        copy.UnselectAll();
    }

private:
    QByteArray bytes_;
};

QString TextOf(const Surface &surface) {
    QStringList lines;
    for (const Node *node : surface.SelectedNodes()) lines << node->Text().simplified();
    return lines.join(QLatin1Char('\n'));
}

std::vector<QRectF> BoxesOf(const Surface &surface) {
    std::vector<QRectF> boxes;
    for (const Node &node : surface.Nodes()) boxes.push_back(node.Bounds());
    return boxes;
}

QRectF SelectedExtent(const Surface &surface) {
    QRectF extent;
    for (const Node *node : surface.SelectedNodes()) extent |= node->Bounds();
    return extent;
}

// What a clipboard holds of a map's own.
struct CopiedItems {
    QByteArray bytes;
    std::vector<QDate> dates; // of the nodes
};

void AddItems(Scene &scene, const CopiedItems &items, const QPointF &shift, DayStrip &days) {
    Surface &surface = scene.Model();
    ChangeSelection(surface, [&] {
        surface.UnselectAll();
        PasteBytes(surface, items.bytes, float(shift.x()), float(shift.y()));
        SettleCopies(surface, days, items.dates, SelectedExtent(surface));
    });
}

bool PasteItems(Scene &scene, const CopiedItems &items, const PasteAim &aim) {
    Surface pasted; // damaged data fail here, before anything is changed
    PasteBytes(pasted, items.bytes, 0, 0);
    if (pasted.Nodes().Count() == 0) return false;
    AddItems(scene, items, ShiftForPaste(scene, BoxesOf(pasted), aim), aim.days);
    return true;
}

Node &AddPasted(Surface &surface, const QRectF &box) {
    Node &node =
        surface.Nodes().Add(float(box.left()), float(box.top()), float(box.width()), float(box.height()));
    node.SetSelected(true);
    return node;
}

QSizeF PictureSize(const Picture &picture) {
    QSizeF size = picture.SizeInTwips().expandedTo(QSizeF(15, 15));
    if (qMax(size.width(), size.height()) > kLargestPicture)
        size.scale(kLargestPicture, kLargestPicture, Qt::KeepAspectRatio);
    return size;
}

bool HasPicture(const QMimeData &data) {
    return data.hasImage() || std::any_of(std::begin(kPictureTypes), std::end(kPictureTypes),
                                          [&](auto type) { return data.hasFormat(QLatin1String(type)); });
}

// The first of the files that can be read, as it is, or the image. Error 481 when there is none.
Picture PictureOf(const QMimeData &data) {
    for (const char *type : kPictureTypes) {
        const QByteArray bytes = data.data(QLatin1String(type));
        if (Picture::IsPicture(bytes)) return Picture::FromBytes(bytes);
    }
    return Picture::FromImage(qvariant_cast<QImage>(data.imageData()));
}

// One below the other, around the middle of what is seen.
std::vector<QRectF> BoxesOfLines(qsizetype count, const QRectF &seen) {
    const double step = kTextNode.height() + kTextGap;
    const double height = double(count) * step - kTextGap;
    const QPointF start = seen.center() - QPointF(kTextNode.width(), qMin(height, seen.height())) / 2;
    const QPointF corner(qMax(0.0, start.x()), qMax(0.0, start.y()));
    std::vector<QRectF> boxes;
    for (qsizetype line = 0; line < count; ++line)
        boxes.emplace_back(corner + QPointF(0, double(line) * step), kTextNode);
    return boxes;
}

void PasteLines(Scene &scene, const QStringList &lines, const PasteAim &aim) {
    Surface &surface = scene.Model();
    const std::vector<QRectF> boxes = BoxesOfLines(lines.size(), aim.seen);
    const QPointF shift = ShiftForPaste(scene, boxes, aim);
    ChangeSelection(surface, [&] {
        surface.UnselectAll();
        for (qsizetype line = 0; line < lines.size(); ++line) {
            Node &node = AddPasted(surface, boxes[size_t(line)].translated(shift));
            node.SetText(lines[line]);
            surface.Events().AfterAddNode(surface, node);
        }
        GrowPage(surface, aim.days, SelectedExtent(surface));
    });
}

// The node becomes the selection.
void AddPicture(Surface &surface, const Picture &picture, const QRectF &box, DayStrip &days) {
    ChangeSelection(surface, [&] {
        surface.UnselectAll();
        Node &node = AddPasted(surface, box);
        node.SetShape(kRectangle); // the corners of the picture show
        node.SetPicture(picture);
        GrowPage(surface, days, box);
        surface.Events().AfterAddNode(surface, node);
    });
}

QRectF PictureBox(const Picture &picture, const QPointF &middle) {
    QRectF box(QPointF(), PictureSize(picture));
    box.moveCenter(middle);
    box.moveTopLeft({qMax(0.0, box.left()), qMax(0.0, box.top())});
    return box;
}

void PastePicture(Scene &scene, const Picture &picture, const PasteAim &aim) {
    const QRectF box = PictureBox(picture, aim.seen.center());
    AddPicture(scene.Model(), picture, box.translated(ShiftForPaste(scene, {box}, aim)), aim.days);
}

[[noreturn]] void RaiseTooManyLines(qsizetype count) {
    throw support::Error(kErrTooManyLines, QStringLiteral("Paste"),
                         QStringLiteral("The text has %1 lines. At most %2 can be pasted, a node each.")
                             .arg(QLocale::c().toString(count), QLocale::c().toString(kMostLines)));
}

// Those with something on them.
QStringList LinesOf(const QString &text) {
    QStringList lines;
    qsizetype count = 0;
    for (const QStringView line : QStringTokenizer(text, QLatin1Char('\n'))) {
        if (line.trimmed().isEmpty()) continue;
        if (++count <= kMostLines) lines << line.trimmed().toString();
    }
    if (count > kMostLines) RaiseTooManyLines(count);
    return lines;
}

} // namespace

void AddPictureNode(Surface &surface, const Picture &picture, const QPointF &middle) {
    AddPicture(surface, picture, PictureBox(picture, middle), DayStrip::None());
}

std::unique_ptr<QMimeData> SelectionToMime(const Surface &surface, const DayStrip &days) {
    return std::make_unique<SelectionMime>(SaveSelection(surface),
                                           DatesToBytes(DatesOfSelected(surface, days)), TextOf(surface));
}

bool CanPasteFrom(const QMimeData *data) {
    return data &&
           (data->hasFormat(QString::fromLatin1(kSelectionMimeType)) || HasPicture(*data) || data->hasText());
}

bool PasteFrom(Scene &scene, const QMimeData &data, const PasteAim &aim) {
    const QString own = QString::fromLatin1(kSelectionMimeType);
    if (data.hasFormat(own)) {
        const QByteArray dates = data.data(QString::fromLatin1(kDatesMimeType));
        return PasteItems(scene, {data.data(own), DatesFromBytes(dates)}, aim);
    }
    if (HasPicture(data)) {
        PastePicture(scene, PictureOf(data), aim);
        return true;
    }
    const QStringList lines = LinesOf(data.text());
    if (!lines.isEmpty()) PasteLines(scene, lines, aim);
    return !lines.isEmpty();
}

bool DuplicateSelection(Scene &scene, const PasteAim &aim) {
    const Surface &surface = scene.Model();
    if (surface.SelectedNodes().empty()) return false;
    std::vector<QRectF> boxes;
    for (const Node *node : surface.SelectedNodes()) boxes.push_back(node->Bounds());
    const CopiedItems items{SaveSelection(surface), DatesOfSelected(surface, aim.days)};
    AddItems(scene, items, ShiftBeside(scene, boxes, aim.seen), aim.days);
    return true;
}

} // namespace diagram
