#include "document/FindText.h"

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"
#include "document/cGroups.h"
#include "document/cLevels.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"

#include <algorithm>
#include <optional>
#include <QHash>
#include <QRegularExpression>
#include <QStringMatcher>

namespace document {

namespace {

// The text to be looked for. A plain one is compared as it is, which is several times as fast as a pattern.
class Needle {
public:
    Needle(const QString &text, const FindOptions &options)
        : matcher_(text, options.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive) {
        if (!options.wholeWords) return;
        words_ = QRegularExpression(QStringLiteral("(?<!\\w)%1(?!\\w)").arg(QRegularExpression::escape(text)),
                                    QRegularExpression::UseUnicodePropertiesOption |
                                        (options.matchCase ? QRegularExpression::NoPatternOption
                                                           : QRegularExpression::CaseInsensitiveOption));
    }

    bool IsIn(const QString &text) const {
        return matcher_.indexIn(text) >= 0 && (!words_ || words_->match(text).hasMatch());
    }

    // Replaces every place, and adds their number to `count`.
    QString Replaced(const QString &text, const QString &with, int &count) const {
        QString result;
        qsizetype done = 0;
        for (qsizetype at = Next(text, 0); at >= 0; at = Next(text, done)) {
            result += text.mid(done, at - done) + with;
            done = at + matcher_.pattern().size();
            ++count;
        }
        return result + text.mid(done);
    }

private:
    qsizetype Next(const QString &text, qsizetype from) const {
        return words_ ? words_->match(text, from).capturedStart() : matcher_.indexIn(text, from);
    }

    QStringMatcher matcher_;
    std::optional<QRegularExpression> words_;
};

// Whether the names behind a node's tag hold the text; the same for all nodes with that tag.
class Names {
public:
    Names(const cGroups &groups, const cLevels &levels, const Needle &needle)
        : groups_(groups), levels_(levels), needle_(needle) {}

    bool Hold(const QString &tag) {
        auto known = known_.constFind(tag);
        if (known == known_.constEnd()) known = known_.insert(tag, Look(tag));
        return *known;
    }

private:
    bool Look(const QString &tag) const {
        return needle_.IsIn(groups_.GroupNameForKey(EntryOfTag(tag, tags::kGroup))) ||
               needle_.IsIn(levels_.LevelNameForKey(EntryOfTag(tag, tags::kLevel)));
    }

    const cGroups &groups_;
    const cLevels &levels_;
    const Needle &needle_;
    QHash<QString, bool> known_;
};

template <typename Item>
bool MayBeFound(const Item &item) {
    return item.Selectable() && !item.Hidden();
}

// A hit with the place that it is sorted by.
struct PlacedHit {
    float top, left;
    FindHit hit;
};

bool FurtherHold(const FurtherTexts &further, const diagram::Node &node, const Needle &needle) {
    return further &&
           std::ranges::any_of(further(node), [&](const QString &text) { return needle.IsIn(text); });
}

void FindOn(const diagram::Surface &surface, const Needle &needle, Names &names, const FurtherTexts &further,
            std::vector<PlacedHit> &hits) {
    const int slice = surface.Index();
    for (const diagram::Node &node : surface.Nodes()) {
        if (!MayBeFound(node)) continue;
        if (needle.IsIn(node.Text()) || needle.IsIn(node.Event()) || names.Hold(node.Tag()) ||
            FurtherHold(further, node, needle))
            hits.push_back({node.Top(), node.Left(), {slice, diagram::ItemKind::Node, node.Id()}});
    }
    for (const auto &link : surface.Links()) {
        if (!MayBeFound(*link) || !needle.IsIn(link->Text())) continue;
        const diagram::Point start = link->Route().front();
        hits.push_back({start.y, start.x, {slice, diagram::ItemKind::Link, link->Id()}});
    }
}

// Replaces in one item; counts the places.
void ReplaceIn(diagram::Surface &surface, const FindHit &hit, const Needle &needle, const QString &with,
               int &count) {
    if (diagram::Node *node = surface.FindNode(hit.item)) {
        node->SetText(needle.Replaced(node->Text(), with, count));
        node->SetEvent(needle.Replaced(node->Event(), with, count));
    } else if (diagram::Link *link = surface.FindLink(hit.item)) {
        link->SetText(needle.Replaced(link->Text(), with, count));
    }
}

} // namespace

std::vector<FindHit> FindText(const SurfaceArray &surfaces, const cGroups &groups, const cLevels &levels,
                              const QString &text, const FindOptions &options, const FurtherTexts &further) {
    if (text.isEmpty()) return {};
    const Needle needle(text, options);
    Names names(groups, levels, needle);
    std::vector<FindHit> result;
    for (const int slice : surfaces.Indices()) {
        std::vector<PlacedHit> hits;
        FindOn(surfaces[slice], needle, names, further, hits);
        std::ranges::stable_sort(hits, {}, [](const PlacedHit &hit) { return std::pair(hit.top, hit.left); });
        for (const PlacedHit &hit : hits) result.push_back(hit.hit);
    }
    return result;
}

int ReplaceText(const SurfaceArray &surfaces, const std::vector<FindHit> &hits, const QString &text,
                const QString &with, const FindOptions &options) {
    if (text.isEmpty()) return 0;
    const Needle needle(text, options);
    int count = 0;
    for (const int slice : surfaces.Indices()) {
        diagram::Surface &surface = surfaces[slice];
        const diagram::ActionGroup step(surface);
        for (const FindHit &hit : hits)
            if (hit.slice == slice) ReplaceIn(surface, hit, needle, with, count);
    }
    return count;
}

} // namespace document
