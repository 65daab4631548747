// Pictures of nodes and links as a clipboard offers them to other programs.
#pragma once

#include "diagram/export/Export.h"

#include <memory>
#include <QHash>
#include <QMimeData>
#include <span>

namespace diagram {

class Surface;

// Each picture is made once, when somebody asks for it: copying much takes no longer than copying little.
class PictureMime : public QMimeData {
public:
    explicit PictureMime(std::span<const PictureFormat> forms) : forms_(forms) {}

    QStringList formats() const override;
    bool hasFormat(const QString &type) const override { return formats().contains(type); }

protected:
    QVariant retrieveData(const QString &type, QMetaType preferred) const override;
    // Puts what is to be painted on an empty surface.
    virtual void Fill(Surface &copy) const = 0;

private:
    const QByteArray &Made(PictureFormat format) const;

    std::span<const PictureFormat> forms_;
    mutable QHash<int, QByteArray> made_;
};

// The whole surface as it is now: an enhanced metafile, one of sixteen bits, SVG, PNG and an image.
std::unique_ptr<PictureMime> SurfaceToMime(const Surface &surface);

// Puts that on the system's clipboard, in the platform's own forms where it has such.
void PictureToClipboard(const Surface &surface);

} // namespace diagram
