// Editing the text of a node or link in place, without the widget that shows it.
#pragma once

#include "diagram/model/Surface.h"

#include <optional>
#include <QRectF>
#include <QString>

namespace diagram {

class Scene;

// Characters; longer texts are not edited in place, as laying them out at every key would take too long.
constexpr int kLongestInPlace = 32000;

// How the text looks and where it stands, in twips at the surface.
struct TextPlace {
    QRectF area;     // within which the text is aligned
    QString painted; // there, which the text box must hide
    Font font;
    support::Colour foreColor = support::kBlack;
    std::optional<support::Colour> fillColor; // none: the surface shows through
    int alignment = 7;
    bool wraps = true; // at the width of the area; a label grows to both sides instead
};

// A Commit writes what was typed so far, and may be followed by others; without one nothing is written. Keeps
// the item by its id: when it is gone nothing is written either.
class EditText {
public:
    EditText(Surface &surface, const diagram::Item &item);

    // The text at the start with single line feeds.
    const QString &Text() const { return text_; }
    // None when the item is gone.
    std::optional<TextPlace> Place(Scene &scene) const;
    // What Commit would write, and to which item; none for the same text.
    std::optional<QString> Changed(const QString &text) const;
    ItemId Item() const { return id_; }
    // Writes the text with carriage return and line feed at line ends: one step and AfterEdit. The same text
    // is no change. Of a node only the first text is edited, whatever is shown.
    void Commit(const QString &text);

private:
    Surface &surface_;
    ItemId id_;
    ItemKind kind_;
    QString text_;
};

// What in-place editing would edit: the selected node, else the selected link; null for none.
Item *EditableItem(const Surface &surface);

} // namespace diagram
