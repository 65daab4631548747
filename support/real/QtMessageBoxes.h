// Message boxes and the one-line question, with Qt's dialogs.
#pragma once

#include "support/Desktop.h"

namespace support {

class QtMessageBoxes : public MessageBoxes {
public:
    Answer Show(const QString &text, Buttons buttons, Icon icon, const QString &title,
                EnterPresses enter) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &preset) override;
};

// `text` with every carriage return, line feed and pair of both as one line feed.
QString WithLineFeeds(const QString &text);

// `text` so that a box of it fits on a screen: an overlong one loses its middle, and runs without a blank may
// be broken.
QString FitForBox(const QString &text);

} // namespace support
