// The form for the levels of the template, and nodes that have them.
#pragma once

#include "diagram/edit/History.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "tests/dialogs/NamesTest.h"

#include <gmock/gmock.h>

namespace dialogs::testing {

inline QStringList NamesOf(const document::cLevels &levels) {
    QStringList names;
    for (const document::cLevel &level : levels) names << level.LevelName;
    return names;
}

class LevelsForm : public NamesTest<frmLevels, LevelsFormArgument> {
protected:
    LevelsFormArgument &argument() override { return argument_; }
    document::cLevels &Levels() { return window->clsSettings().Levels(); }
    QStringList LevelNames() { return NamesOf(Levels()); }
    // A node of the level at that position, on a slice.
    diagram::Node &NodeOfLevel(int level, int slice = 0) {
        if (!window->AddFlow1().Exists(slice)) {
            window->AddFlow1().Load(slice);
            diagram::AttachHistory(window->AddFlow1()[slice]);
        }
        diagram::Node &node = window->AddFlow1()[slice].Nodes().Add(0, 0, 100, 100);
        document::SetTag(node, document::tags::kLevel, Levels().Item(level).Key);
        return node;
    }
    QString LevelOf(const diagram::Node &node) {
        return Levels().LevelNameForKey(document::GetTag(node, document::tags::kLevel));
    }
    void PressNew(const QString &name, support::Colour colour = support::kNoColour) {
        Press("cmdNew");
        desktop.ExpectColour(colour);
        Type(name);
    }

private:
    LevelsFormArgument argument_{*window, Levels()};
};

} // namespace dialogs::testing
