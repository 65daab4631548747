// Showing a message fails with error 5.
#pragma once

#include "support/Desktop.h"
#include "support/Error.h"

namespace mainwindow::testing {

class FailingBoxes : public support::MessageBoxes {
public:
    support::Answer Show(const QString &, support::Buttons, support::Icon, const QString &,
                         support::EnterPresses) override {
        throw support::Error(5, QString(), QStringLiteral("No box"));
    }
    QString InputBox(const QString &, const QString &, const QString &) override { return {}; }
};

} // namespace mainwindow::testing
