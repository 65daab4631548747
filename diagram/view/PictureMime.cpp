#include "diagram/view/PictureMime.h"

#include "diagram/export/PictureKinds.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "support/PlatformClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

namespace diagram {

namespace {

const QString kImage = QStringLiteral("application/x-qt-image");

constexpr PictureFormat kSurfaceForms[] = {PictureFormat::Emf, PictureFormat::Wmf, PictureFormat::Svg,
                                           PictureFormat::Png};

// The surface's own form leaves the background out.
class SurfaceMime : public PictureMime {
public:
    explicit SurfaceMime(const Surface &surface)
        : PictureMime(kSurfaceForms),
          bytes_(SaveBytes(surface)),
          picture_(surface.Picture()),
          colour_(surface.BackColor()),
          bothTexts_(surface.Screen().ShowsBothTexts()) {}

protected:
    void Fill(Surface &copy) const override {
        LoadBytes(copy, bytes_);
        copy.SetPicture(picture_);
        copy.SetBackColor(colour_);
        copy.Screen().SetShowsBothTexts(bothTexts_);
    }

private:
    QByteArray bytes_;
    Picture picture_;
    support::Colour colour_;
    bool bothTexts_;
};

} // namespace

QStringList PictureMime::formats() const {
    QStringList types = QMimeData::formats();
    for (const PictureFormat form : forms_)
        for (const char *type : KindOf(form).types)
            if (type) types << QLatin1String(type);
    return types << kImage;
}

QVariant PictureMime::retrieveData(const QString &type, QMetaType preferred) const {
    if (type == kImage) return QImage::fromData(Made(PictureFormat::Png), "png");
    for (const PictureFormat form : forms_)
        for (const char *name : KindOf(form).types)
            if (name && type == QLatin1String(name)) return Made(form);
    return QMimeData::retrieveData(type, preferred);
}

const QByteArray &PictureMime::Made(PictureFormat format) const {
    QByteArray &made = made_[int(format)];
    if (made.isEmpty()) {
        Renderer renderer; // outlives the copy, whose nodes it measures
        Surface copy;
        Fill(copy);
        copy.SetMeasure(&renderer.Measure());
        made = ExportPicture(copy, format);
    }
    return made;
}

std::unique_ptr<PictureMime> SurfaceToMime(const Surface &surface) {
    return std::make_unique<SurfaceMime>(surface);
}

void PictureToClipboard(const Surface &surface) {
    std::unique_ptr<PictureMime> mime = SurfaceToMime(surface);
    const auto file = [&](const char *type) {
        return [&mime, type] { return mime->data(QLatin1String(type)); };
    };
    if (!support::platform::PutPictureOnClipboard(file("image/emf"), file("image/wmf"), file("image/png")))
        QGuiApplication::clipboard()->setMimeData(mime.release());
}

} // namespace diagram
