// A slice of a map, or the drawing of a template, as the texts of the delivered files describe it.
#pragma once

#include <QDir>
#include <QHash>
#include <QJsonObject>
#include <QString>

namespace diagram {
class Surface;
}
namespace document {
class MapWindow;
}

namespace product {

// The object in a file; error 5 for what can't be read as one.
QJsonObject ReadText(const QString &path);

// The looks that all editions share: looks.json in the folder above that of an edition.
QJsonObject LooksOf(const QDir &edition);

// The keys of nodes by the ids that the text gives them.
class NodeKeys {
public:
    void Add(const QString &id, const QString &key) { keys_[id] = key; }
    QString Of(const QString &id) const; // error 5 for an unknown one

private:
    QHash<QString, QString> keys_;
};

// Adds the nodes and links of a text that is written out (LayoutText.h). Levels and groups are named as in
// the pools of the window; a node takes the colour of its level. "back" puts a node below all others.
// "timeline" has "arrangement" (Left, Right, Top, Bottom, Center), "keep" (true keeps the nodes at their
// dates: the text then says about where beside the strip they stand), "lanes" (Level or Group) and whatever
// else than the default the months look like; "date" dates a node, in the form 2027-01-31. Pictures are found
// in `resources`, the look of months in its Template.tnd.json. Keys are new ones.
void BuildSlice(document::MapWindow &window, diagram::Surface &surface, const QJsonObject &slice,
                const QDir &resources, NodeKeys &keys);

} // namespace product
