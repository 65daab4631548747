#include "timeline/PrepFileForImport.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/clsGUID.h"
#include "timeline/DateLanguage.h"
#include "timeline/TimelineNodes.h"

#include <QUrl>

namespace timeline {

namespace {

using document::tags::kGroup;
using document::tags::kLevel;
using document::tags::kNamesOfGroups;
using document::tags::kNamesOfLevels;

// "KEY:NAME,KEY:NAME", the names encoded, so that they hold none of the separators of a tag.
QString Packed(const QHash<QString, QString> &names) {
    QStringList entries;
    for (auto name = names.begin(); name != names.end(); ++name)
        entries << name.key() + QLatin1Char(':') + QString::fromLatin1(QUrl::toPercentEncoding(name.value()));
    entries.sort();
    return entries.join(QLatin1Char(','));
}

QHash<QString, QString> Unpacked(const QString &packed) {
    QHash<QString, QString> names;
    for (const QString &entry : packed.split(QLatin1Char(','), Qt::SkipEmptyParts))
        names.insert(entry.section(QLatin1Char(':'), 0, 0),
                     QUrl::fromPercentEncoding(entry.section(QLatin1Char(':'), 1).toLatin1()));
    return names;
}

// Levels and groups of the map in the place of those that a node brings along.
class Fitting {
public:
    Fitting(document::clsfrmMain &settings, const KeyNames &names) : settings_(settings), names_(names) {}

    void Fit(diagram::Node &node) const {
        if (const QString keys = document::GetTag(node, kGroup); !keys.isEmpty())
            document::SetTag(node, kGroup, Groups(keys));
        if (const QString key = document::GetTag(node, kLevel); !key.isEmpty())
            document::SetTag(node, kLevel, Level(key));
    }

private:
    QString Groups(const QString &keys) const {
        QStringList found;
        for (const QString &key : keys.split(QLatin1Char(',')))
            if (const QString group = Group(key); !group.isEmpty() && !found.contains(group)) found << group;
        if (!found.isEmpty()) return found.join(QLatin1Char(','));
        const document::cGroup *first = settings_.Groups().FirstSelectedGroup();
        return first ? first->Key : QString();
    }
    QString Group(const QString &key) const {
        const document::cGroups &groups = settings_.Groups();
        const QString named = groups.KeyForGroupName(names_.groups.value(key));
        return named.isEmpty() && groups.NewEnum().Find(key) ? key : named;
    }
    QString Level(const QString &key) const {
        const document::cLevels &levels = settings_.Levels();
        const QString named = levels.KeyForLevelName(names_.levels.value(key));
        if (!named.isEmpty()) return named;
        if (levels.NewEnum().Find(key)) return key;
        const document::cLevel *first = levels.FirstSelectedLevel();
        return first ? first->Key : QString();
    }

    document::clsfrmMain &settings_;
    const KeyNames &names_;
};

KeyNames NamesFor(diagram::Surface &surface, const KeyNames &given) {
    KeyNames names = given;
    if (const diagram::Node *node = LocateTimelineNode(surface, kDiagramDate, false)) {
        const KeyNames carried = CarriedNames(*node);
        names.levels.insert(carried.levels);
        names.groups.insert(carried.groups);
    }
    return names;
}

void MakeFit(diagram::Surface &surface, document::MapWindow &target, const KeyNames &given) {
    const KeyNames names = NamesFor(surface, given);
    const Fitting fitting(target.clsSettings(), names);
    for (diagram::Node &node : surface.Nodes()) fitting.Fit(node);
    document::ChangeGUIDs(surface, false);
    TranslateDates(surface);
    if (const std::optional<bool> shown = target.ShowsTimeline()) ShowHideTimelineNodes(surface, *shown);
}

} // namespace

KeyNames NamesOf(document::clsfrmMain &settings) {
    KeyNames names;
    for (const document::cLevel &level : settings.Levels()) names.levels.insert(level.Key, level.LevelName);
    for (const document::cGroup &group : settings.Groups()) names.groups.insert(group.Key, group.GroupName);
    return names;
}

void CarryNames(diagram::Node &diagram, const KeyNames &names) {
    document::SetTag(diagram, kNamesOfLevels, Packed(names.levels));
    document::SetTag(diagram, kNamesOfGroups, Packed(names.groups));
}

KeyNames CarriedNames(const diagram::Node &diagram) {
    return {Unpacked(document::GetTag(diagram, kNamesOfLevels)),
            Unpacked(document::GetTag(diagram, kNamesOfGroups))};
}

void PrepFileForImport(diagram::Surface &Surface, const QString &File, document::MapWindow &Target,
                       const KeyNames &names) {
    support::PassOn("PrepFileForImport", [&] {
        Surface.Nodes().Clear();
        diagram::LoadFile(Surface, File);
        MakeFit(Surface, Target, names);
        diagram::SaveFile(Surface, File);
    });
}

QByteArray PrepBytesForImport(const QByteArray &bytes, document::MapWindow &Target, const KeyNames &names) {
    return support::PassOn("PrepFileForImport", [&] {
        diagram::Surface surface;
        diagram::LoadBytes(surface, bytes);
        MakeFit(surface, Target, names);
        return diagram::SaveBytes(surface);
    });
}

} // namespace timeline
