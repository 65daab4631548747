#include "diagram/view/PictureMime.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "support/PlatformClipboard.h"

#include <algorithm>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

namespace diagram {

namespace {

const QString kImage = QStringLiteral("application/x-qt-image");

// Programs look for metafiles under several names.
constexpr MimeForm kSurfaceForms[] = {
    {"image/x-emf", PictureFormat::Emf},   {"image/emf", PictureFormat::Emf},
    {"image/x-wmf", PictureFormat::Wmf},   {"image/wmf", PictureFormat::Wmf},
    {"image/svg+xml", PictureFormat::Svg}, {"image/png", PictureFormat::Png}};

// The surface's own form leaves the background out.
class SurfaceMime : public PictureMime {
public:
    explicit SurfaceMime(const Surface &surface)
        : PictureMime(kSurfaceForms),
          bytes_(SaveBytes(surface)),
          picture_(surface.Picture()),
          colour_(surface.BackColor()),
          bothTexts_(surface.ShowsBothTexts()) {}

protected:
    void Fill(Surface &copy) const override {
        LoadBytes(copy, bytes_);
        copy.SetPicture(picture_);
        copy.SetBackColor(colour_);
        copy.SetShowsBothTexts(bothTexts_);
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
    for (const MimeForm &form : forms_) types << QLatin1String(form.type);
    return types << kImage;
}

QVariant PictureMime::retrieveData(const QString &type, QMetaType preferred) const {
    if (type == kImage) return QImage::fromData(Made(PictureFormat::Png), "png");
    const auto form = std::find_if(forms_.begin(), forms_.end(),
                                   [&](const MimeForm &f) { return type == QLatin1String(f.type); });
    return form == forms_.end() ? QMimeData::retrieveData(type, preferred) : Made(form->format);
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
