// What the tests of the setup form share: a map with two levels and the form on its surface.
#pragma once

#include "support/Files.h"
#include "tests/Controls.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/setup/frmTimelineSetup.h"

#include <QComboBox>
#include <QPushButton>
#include <QTemporaryDir>

namespace timeline::testing {

class SetupTest : public TimelineTest {
protected:
    SetupTest() {
        support::SetProgramPath(program.path());
        window.clsSettings().Levels().Create(QStringLiteral("First"), true, 0x112233);
        window.clsSettings().Levels().Create(QStringLiteral("Second"), false, 0x445566);
    }
    ~SetupTest() override { support::SetProgramPath(QString()); }

    // In the role of the timeline, with its template node; both made where they are missing.
    frmTimelineSetup &Form(bool asTemplate = false) {
        diagram::Node *look =
            asTemplate ? document::LocateTemplateNode(flow, true) : LocateTimeLineTemplateNode(flow, true);
        return Form({window, &flow, look, asTemplate});
    }
    frmTimelineSetup &Form(const TimelineSetupArgument &argument) {
        form = std::make_unique<frmTimelineSetup>(argument, nullptr);
        return *form;
    }
    template <typename Widget = QComboBox>
    Widget &Control(const char *name) {
        return tests::ControlOf<Widget>(*form, name);
    }
    // As the user chooses an entry.
    void Choose(const char *list, int entry) {
        auto &box = Control(list);
        box.setCurrentIndex(entry);
        Q_EMIT box.activated(entry);
    }
    void Press(const char *button) { Control<QPushButton>(button).click(); }
    diagram::Node &Sample() { return *form->TimelineSample().Nodes().begin(); }

    QTemporaryDir program;
    std::unique_ptr<frmTimelineSetup> form;
};

} // namespace timeline::testing
