#include "timeline/setup/StoreDefaults.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/cLevels.h"
#include "document/DefaultNodes.h"
#include "document/MapSchema.h"
#include "document/TemplateFile.h"
#include "settings/DeliveredFiles.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {

// Makes the node a hidden one with that text, until it goes.
class InDisguise {
public:
    InDisguise(diagram::Node &node, const QString &text) : node_(node), text_(node.Text()) {
        node_.SetText(text);
        Show(false);
    }
    ~InDisguise() {
        node_.SetText(text_);
        Show(true);
    }
    InDisguise(const InDisguise &) = delete;
    InDisguise &operator=(const InDisguise &) = delete;

private:
    void Show(bool on) {
        node_.SetHidden(!on);
        node_.SetSelectable(on);
    }
    diagram::Node &node_;
    QString text_;
};

} // namespace

QString StoreDefaultNode(diagram::Surface &surface, diagram::Node &node, bool asTemplate) {
    const InDisguise disguise(node, asTemplate ? document::kTemplateNodeText : kTemplateNodeText);
    const QString name = asTemplate ? document::kTemplateNodeFile : document::kTimelineTemplateNodeFile;
    const QString path = settings::PathToWrite(name);
    diagram::SaveFile(surface, path);
    return path;
}

QString StoreDefaultLevels(const document::cLevels &levels, support::Colour first) {
    std::vector<document::LevelRow> rows;
    for (const document::cLevel &level : levels)
        rows.push_back({level.LevelName, level.Selected, rows.empty() ? first : level.Color});
    return document::WriteDefaultLevels(rows);
}

} // namespace timeline
