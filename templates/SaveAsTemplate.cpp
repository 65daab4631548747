#include "templates/SaveAsTemplate.h"

#include "app/settings/DeliveredFiles.h"
#include "app/settings/Settings.h"
#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "support/Error.h"
#include "support/FileNames.h"
#include "support/Files.h"
#include "templates/DiagramNode.h"
#include "templates/ScratchFile.h"
#include "templates/TemplateDb.h"
#include "timeline/PrepFileForImport.h"

#include <QBuffer>
#include <QDataStream>
#include <QPainter>

namespace templates {

namespace {

constexpr int kIconSizes[] = {16, 32, 48, 256};
constexpr int kDrawnPixels = 1024; // of the drawing that is scaled down

// The drawing in the middle of a square of that many pixels.
QByteArray PngOf(const QImage &drawing, int size) {
    QImage square(size, size, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    const QImage small = drawing.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter(&square).drawImage((size - small.width()) / 2, (size - small.height()) / 2, small);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    square.save(&buffer, "png");
    return bytes;
}

// An icon file: a directory of sixteen bytes an entry, then the pictures as PNG.
QByteArray IconFile(const QList<std::pair<int, QByteArray>> &pictures) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(pictures.size());
    quint32 offset = quint32(6 + 16 * pictures.size());
    for (const auto &[size, png] : pictures) {
        stream << quint8(size) << quint8(size) << quint8(0) << quint8(0); // 256 is told as 0
        stream << quint16(1) << quint16(32) << quint32(png.size()) << offset;
        offset += quint32(png.size());
    }
    for (const auto &[size, png] : pictures) stream.writeRawData(png.constData(), int(png.size()));
    return bytes;
}

} // namespace

QString ProposedPath(const QString &tabText) {
    return settings::FolderForTemplates() +
           support::SafeFileName(tabText + QLatin1Char('.') + settings::Terms().TEMPLATE);
}

QString FirstIcon() {
    for (const QString &folder : {settings::TemplatesFolder(), settings::OwnTemplatesFolder()}) {
        const QStringList icons =
            support::GetFiles(folder + QStringLiteral("*.ico"), support::fileattributes::kNormal);
        if (!icons.isEmpty()) return folder + icons.front();
    }
    return {};
}

QByteArray IconFromDrawing(diagram::Surface &surface) {
    const QImage drawing = diagram::ExportImage(surface, {.pixels = kDrawnPixels});
    QList<std::pair<int, QByteArray>> pictures;
    for (const int size : kIconSizes) pictures.emplace_back(size, PngOf(drawing, size));
    return IconFile(pictures);
}

void SaveAsTemplate(document::MapWindow &window, diagram::Surface &Flow, const QString &iconFile,
                    const QString &outputFile) {
    support::PassOn("SaveAsTemplate", [&] {
        const ScratchFile scratch;
        {
            const diagram::Uncounted carrier(Flow); // tells nothing that the slice doesn't
            timeline::CarryNames(PutDiagramNode(Flow), timeline::NamesOf(window.clsSettings()));
        }
        diagram::SaveFile(Flow, scratch.Path());
        CreateTemplate(scratch.Path(), iconFile, outputFile);
    });
}

} // namespace templates
