// What the tests of the node dialog share: a map with three levels and three groups, one node, and a timeline
// that was set up.
#pragma once

#include "diagram/edit/History.h"
#include "diagram/model/Properties.h"
#include "diagram/model/Surface.h"
#include "dialogs/frmNodeDialog.h"
#include "dialogs/NodeSample.h"
#include "document/Tags.h"
#include "tests/BritishLocale.h"
#include "tests/Controls.h"
#include "tests/document/MapTest.h"

#include <QApplication>
#include <QTabWidget>

namespace dialogs::testing {

// The positions of the pages.
enum Page { kSettingsPage, kTextPage, kDatePage, kLevelPage, kPicturePage, kHyperlinkPage, kAttachmentsPage };

class NodeDialogTest : public document::testing::MapTest {
protected:
    NodeDialogTest();
    ~NodeDialogTest() override;

    diagram::Node &AddNode(const QString &text = QString());
    NodeDialogArgument Argument(diagram::Node &oNode, bool editsSelection = true) {
        return {window, flow, oNode, editsSelection};
    }
    void Apply(diagram::Node &oNode, const NodeEdit &edit, bool editsSelection = true) {
        ApplyNodeEdit(Argument(oNode, editsSelection), edit);
    }
    void Date(diagram::Node &oNode, const QString &day);
    QString LevelOf(const diagram::Node &oNode) const {
        return document::GetTag(oNode, document::tags::kLevel);
    }
    QString GroupsOf(const diagram::Node &oNode) const {
        return document::GetTag(oNode, document::tags::kGroup);
    }
    QString LevelKey(int position) { return window.clsSettings().Levels().Item(position).Key; }
    QString GroupKey(int position) { return window.clsSettings().Groups().Item(position).Key; }

    // The form, shown.
    frmNodeDialog &Open(diagram::Node &oNode, bool editsSelection = true);
    template <typename Widget>
    Widget &Control(const char *name) {
        return tests::ControlOf<Widget>(*form, name);
    }
    void GoTo(int page) { form->SSIndexTab1()->setCurrentIndex(page); }
    void Click(const char *button);
    void Choose(const char *list, int value);
    // Runs what the form has put off to the event loop, such as the new sample.
    void Settle();

    const tests::BritishLocale british;
    document::MemoryWindow window{desktop.Get(), document::EmptyPools{}};
    diagram::Surface &flow = window.AddFlow1()[0];
    diagram::Node *node = nullptr;
    std::unique_ptr<frmNodeDialog> form;
};

} // namespace dialogs::testing
