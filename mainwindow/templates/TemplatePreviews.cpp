#include "mainwindow/templates/TemplatePreviews.h"

#include "diagram/export/Export.h"
#include "diagram/model/Surface.h"
#include "templates/TemplateFiles.h"

#include <QDateTime>
#include <QFileInfo>

namespace mainwindow {

namespace {

constexpr int kPixels = 560;             // twice of what is shown, for fine screens
constexpr int kKept = 24;                // pictures
constexpr qint64 kLargestFile = 4 << 20; // bytes; a larger one would hold up the window

// A key that changes with the content of the file.
QString StateOf(const QString &file) {
    const QFileInfo info(file);
    return QStringLiteral("%1|%2|%3").arg(file).arg(info.size()).arg(info.lastModified().toMSecsSinceEpoch());
}

} // namespace

QImage PreviewOf(const QString &file, int pixels) {
    if (QFileInfo(file).size() > kLargestFile) return {};
    try {
        diagram::Surface surface;
        templates::ReadTemplate(surface, file);
        if (surface.Extent().isEmpty()) return {};
        return diagram::ExportImage(surface, {.pixels = pixels});
    } catch (const std::exception &) {
        return {}; // a click on the item tells what is wrong with it
    }
}

TemplatePreviews::TemplatePreviews(QObject *parent) : QObject(parent), made_(kKept) {
    idle_.setSingleShot(true);
    idle_.setInterval(0);
    connect(&idle_, &QTimer::timeout, this, &TemplatePreviews::PaintNext);
}

QImage TemplatePreviews::Ready(const QString &file) const {
    const QImage *made = made_.object(StateOf(file));
    return made ? *made : QImage();
}

void TemplatePreviews::Prepare(const QString &file) {
    if (made_.contains(StateOf(file))) return;
    if (!wanted_.contains(file)) wanted_ << file;
    idle_.start();
}

void TemplatePreviews::PaintNext() {
    if (wanted_.isEmpty()) return;
    const QString file = wanted_.takeFirst();
    auto *image = new QImage(PreviewOf(file, kPixels));
    const bool shows = !image->isNull();
    made_.insert(StateOf(file), image);
    if (shows) Q_EMIT Made(file);
    if (!wanted_.isEmpty()) idle_.start();
}

} // namespace mainwindow
