// Text inside rich text (Rich Text Format 1.9.1).
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace output {

// Text that readers show letter for letter: nothing of it is taken for a command. Letters beyond ASCII are
// Unicode escapes with "?" for readers that know none. Control characters but the tab are left out, halves of
// surrogate pairs become the replacement character.
QByteArray RtfText(const QString &text);

// A stretch of text that goes in one direction, as far as its letters tell.
struct RtfStretch {
    QString text;
    bool rightToLeft = false;
};
// Letters without a direction of their own go with those in front; the first ones as `rightToLeft` says.
std::vector<RtfStretch> StretchesOf(const QString &text, bool rightToLeft);

} // namespace output
