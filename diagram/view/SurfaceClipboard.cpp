#include "diagram/view/SurfaceClipboard.h"

#include "diagram/edit/History.h"
#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/interaction/Selecting.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/PictureMime.h"
#include "support/Error.h"

#include <algorithm>
#include <QImage>
#include <QLocale>
#include <QMimeData>
#include <QStringTokenizer>

namespace diagram {

namespace {

constexpr float kPasteStep = 150; // twips beside what stands there already
constexpr int kMostSteps = 100;
constexpr qsizetype kMostLines = 2000;    // of pasted text
constexpr double kLargestPicture = 12000; // longest side of a pasted picture, twips
constexpr QSizeF kTextNode{2400, 600};
constexpr float kTextGap = 150;
constexpr int kRectangle = 1;

constexpr PictureFormat kSelectionForms[] = {PictureFormat::Png, PictureFormat::Svg};

class SelectionMime : public PictureMime {
public:
    SelectionMime(const QByteArray &bytes, const QString &text)
        : PictureMime(kSelectionForms), bytes_(bytes) {
        setData(QString::fromLatin1(kSelectionMimeType), bytes);
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

bool StandsAt(Scene &scene, const QRectF &box) {
    std::vector<Item *> items;
    scene.ItemsIn(box, items);
    return std::any_of(items.begin(), items.end(),
                       [&](Item *item) { return item->AsNode() && item->AsNode()->Bounds() == box; });
}

// How far to move what is pasted: not at all when it is in sight and nothing stands there, a step further
// when something does, into the middle of what is seen when it would be out of sight.
QPointF PasteShift(Scene &scene, const Surface &pasted, const QRectF &seen) {
    const QRectF extent = pasted.Extent();
    QPointF shift;
    if (!extent.adjusted(-1, -1, 1, 1).intersects(seen)) shift = seen.center() - extent.center();
    shift = {qMax(shift.x(), -extent.left()), qMax(shift.y(), -extent.top())};
    const QRectF first = pasted.Nodes().Item(1).Bounds();
    for (int step = 0; step < kMostSteps && StandsAt(scene, first.translated(shift)); ++step)
        shift += QPointF(kPasteStep, kPasteStep);
    return shift;
}

bool PasteItems(Scene &scene, const QByteArray &bytes, const QRectF &seen) {
    Surface pasted; // damaged data fail here, before anything is changed
    PasteBytes(pasted, bytes, 0, 0);
    if (pasted.Nodes().Count() == 0) return false;
    const QPointF shift = PasteShift(scene, pasted, seen);
    ChangeSelection(scene.Model(), [&] {
        scene.Model().UnselectAll();
        PasteBytes(scene.Model(), bytes, float(shift.x()), float(shift.y()));
    });
    return true;
}

Node &AddPasted(Surface &surface, const QRectF &box) {
    Node &node = surface.Nodes().Add(float(qMax(0.0, box.left())), float(qMax(0.0, box.top())),
                                     float(box.width()), float(box.height()));
    node.SetSelected(true);
    return node;
}

QSizeF PictureSize(const Picture &picture) {
    QSizeF size = picture.SizeInTwips().expandedTo(QSizeF(15, 15));
    if (qMax(size.width(), size.height()) > kLargestPicture)
        size.scale(kLargestPicture, kLargestPicture, Qt::KeepAspectRatio);
    return size;
}

// Files of pictures, those that look the same everywhere first.
constexpr const char *kPictureTypes[] = {"image/png", "image/jpeg",  "image/gif",
                                         "image/bmp", "image/x-emf", "image/emf",
                                         "image/wmf", "image/x-wmf", "image/svg+xml"};

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

void PasteLines(Surface &surface, const QStringList &lines, const QRectF &seen) {
    const double step = kTextNode.height() + kTextGap;
    const double height = double(lines.size()) * step - kTextGap;
    QPointF corner = seen.center() - QPointF(kTextNode.width(), qMin(height, seen.height())) / 2;
    ChangeSelection(surface, [&] {
        surface.UnselectAll();
        for (const QString &line : lines) {
            Node &node = AddPasted(surface, QRectF(corner, kTextNode));
            node.SetText(line);
            surface.Events().AfterAddNode(surface, node);
            corner.setY(qMax(0.0, corner.y()) + step);
        }
    });
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
    QRectF box(QPointF(), PictureSize(picture));
    box.moveCenter(middle);
    ChangeSelection(surface, [&] {
        surface.UnselectAll();
        Node &node = AddPasted(surface, box);
        node.SetShape(kRectangle); // the corners of the picture show
        node.SetPicture(picture);
        surface.Events().AfterAddNode(surface, node);
    });
}

std::unique_ptr<QMimeData> SelectionToMime(const Surface &surface) {
    return std::make_unique<SelectionMime>(SaveSelection(surface), TextOf(surface));
}

bool CanPasteFrom(const QMimeData *data) {
    return data &&
           (data->hasFormat(QString::fromLatin1(kSelectionMimeType)) || HasPicture(*data) || data->hasText());
}

bool PasteFrom(Scene &scene, const QMimeData &data, const QRectF &seen) {
    const QString own = QString::fromLatin1(kSelectionMimeType);
    if (data.hasFormat(own)) return PasteItems(scene, data.data(own), seen);
    if (HasPicture(data)) {
        AddPictureNode(scene.Model(), PictureOf(data), seen.center());
        return true;
    }
    const QStringList lines = LinesOf(data.text());
    if (!lines.isEmpty()) PasteLines(scene.Model(), lines, seen);
    return !lines.isEmpty();
}

} // namespace diagram
