// A desktop on which showing a message fails with error 5.
#pragma once

#include "support/testing/ScriptedDesktop.h"

namespace mainwindow::testing {

class FailingBoxes : public support::MessageBoxes {
public:
    support::Answer Show(const QString &, support::Buttons, support::Icon, const QString &,
                         support::EnterPresses) override {
        throw support::Error(5, QString(), QStringLiteral("No box"));
    }
    QString InputBox(const QString &, const QString &, const QString &) override { return {}; }
};

// The desktop with those boxes in place of its own.
inline support::Desktop WithBoxes(const support::Desktop &doors, support::MessageBoxes &boxes) {
    return {boxes,        doors.dialogs,  doors.launcher, doors.clock,     doors.memory,    doors.registry,
            doors.random, doors.printers, doors.identity, doors.fileIcons, doors.dialogHost};
}

} // namespace mainwindow::testing
