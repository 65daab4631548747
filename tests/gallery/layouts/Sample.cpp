#include "tests/gallery/layouts/Sample.h"

#include "diagram/model/Surface.h"
#include "document/MemoryWindow.h"
#include "product/MapText.h"
#include "product/SliceText.h"
#include "support/Files.h"
#include "support/RegistryStore.h"

#include <QJsonArray>

namespace gallery {

namespace {

QDir Edition() { return QDir(QStringLiteral(VELMORA_EDITION)); }

} // namespace

Sample::Sample() : desktop_(std::make_unique<support::MemoryRegistryStore>()) {
    const QDir folder(folder_.path());
    product::BuildTemplate(Edition().filePath(QStringLiteral("template.json")),
                           folder.filePath(QStringLiteral("template.tpl")));
    product::BuildDefaultNode(Edition().filePath(QStringLiteral("Template.nd.json")),
                              folder.filePath(QStringLiteral("Template.nd")));
    support::SetProgramPath(folder.path());
    const QDir startup(Edition().filePath(QStringLiteral("Startup")));
    for (const QString &map : startup.entryList({QStringLiteral("*.json")}))
        for (const auto &slice : product::ReadText(startup.filePath(map)).value(u"slices").toArray())
            if (!slice.toObject().contains(u"timeline")) slices_.push_back(slice.toObject());
}

void Sample::With(int slice, const std::function<void(diagram::Surface &, const QString &)> &use) const {
    const QJsonObject &text = slices_[std::size_t(slice)];
    document::MemoryWindow window(support::CurrentDesktop());
    diagram::Surface &surface = window.AddFlow1()[0];
    product::NodeKeys keys;
    product::BuildSlice(window, surface, text, Edition(), keys);
    use(surface, text.value(u"name").toString());
}

} // namespace gallery
