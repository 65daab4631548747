#include "tests/dialogs/NodeDialogTest.h"

#include "diagram/model/ScreenValues.h"
#include "settings/Settings.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/TimelineNodes.h"
#include "widgets/PropertyLists.h"

#include <QComboBox>
#include <QPushButton>

namespace dialogs::testing {

NodeDialogTest::NodeDialogTest() {
    settings::ProductTerms terms = settings::Terms();
    terms.NODE = QStringLiteral("Idea");
    settings::SetTerms(terms);
    diagram::AttachHistory(flow);
    flow.Screen().SetSize(12000, 9000);
    for (const auto &[name, colour] :
         {std::pair("First", 0x102030), std::pair("Second", 0x405060), std::pair("Third", 0x708090)})
        window.clsSettings().Levels().Create(QLatin1String(name), true, colour);
    for (const char *name : {"Red", "Green", "Blue"})
        window.clsSettings().Groups().Create(QLatin1String(name), true);
    diagram::Node &look = *timeline::LocateTimeLineTemplateNode(flow, true);
    look.SetWidth(2000);
    look.SetHeight(500);
    node = &AddNode(QStringLiteral("node"));
    node->SetSelected(true);
}

NodeDialogTest::~NodeDialogTest() { form.reset(); }

diagram::Node &NodeDialogTest::AddNode(const QString &text) {
    diagram::Node &added = flow.Nodes().Add(300, 3000, 1500, 900);
    added.SetText(text);
    return added;
}

void NodeDialogTest::Date(diagram::Node &oNode, const QString &day) {
    timeline::AddTimelineLink(window, flow, oNode, day);
}

frmNodeDialog &NodeDialogTest::Open(diagram::Node &oNode, bool editsSelection) {
    form = std::make_unique<frmNodeDialog>(Argument(oNode, editsSelection), nullptr);
    form->show();
    Settle();
    return *form;
}

void NodeDialogTest::Click(const char *button) {
    Control<QPushButton>(button).click();
    Settle();
}

void NodeDialogTest::Choose(const char *list, int value) {
    auto &box = Control<QComboBox>(list);
    box.setCurrentIndex(box.findData(value));
    Settle();
}

void NodeDialogTest::Settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

} // namespace dialogs::testing
