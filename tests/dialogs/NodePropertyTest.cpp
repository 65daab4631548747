// Every field of the node dialog, on one node and on several: applied, undone, saved and opened again.
#include "tests/dialogs/NodeDialogTest.h"
#include "widgets/PropertyLists.h"

#include <QComboBox>
#include <random>

namespace dialogs::testing {

namespace {

constexpr int kRounds = 25;

// The values of a list, and one that it doesn't have where the model takes others.
std::vector<double> ValuesOf(widgets::ListOf what) {
    QComboBox list;
    widgets::FillList(list, what);
    std::vector<double> values;
    for (int i = 0; i < list.count(); ++i) values.push_back(list.itemData(i).toDouble());
    if (what == widgets::ListOf::DrawWidths || what == widgets::ListOf::Margins) values.push_back(99);
    return values;
}

const QString kTexts[] = {QString(), QStringLiteral("it's, \"said\"\r\nso"),
                          QStringLiteral("hard\u00a0blank|=\n\t"), QStringLiteral("\u6f22\u5b57 \U0001f600"),
                          QString(300, u'x')};

} // namespace

class NodeProperties : public NodeDialogTest, public ::testing::WithParamInterface<int> {
protected:
    NodeProperties() {
        for (int i = 1; i < GetParam(); ++i) AddNode(QStringLiteral("other %1").arg(i)).SetSelected(true);
        AddNode(QStringLiteral("beside"));
        // A map keeps of a level the number that its name begins with.
        document::cLevels &levels = window.clsSettings().Levels();
        levels.Clear();
        for (int level = 1; level <= 3; ++level) levels.Create(QString::number(level), true, level);
        // At the top: of the other places some depend on the size of what is seen.
        document::SetTag(flow, document::tags::kTimelineAlign, QStringLiteral("2"));
        document::SetTag(flow, document::tags::kMissing, QStringLiteral("False"));
        for (diagram::Node &any : flow.Nodes())
            if (any.Key().isEmpty()) any.SetKey(QString::number(keys++));
    }

    template <typename T>
    const T &Any(std::span<const T> values) {
        return values[random() % values.size()];
    }
    int Any(widgets::ListOf what) {
        const std::vector<double> values = ValuesOf(what);
        return int(Any(std::span(values)));
    }
    support::Colour AnyColour() { return support::Colour(random() & 0xFFFFFF); }
    bool Sometimes() { return random() % 2; }

    NodeEdit AnyEdit();
    QStringList AnyGroups() {
        QStringList groups;
        for (const document::cGroup &group : window.clsSettings().Groups())
            if (Sometimes()) groups << group.GroupName;
        return groups;
    }
    // No file keeps what is selected.
    void ExpectSaved(const QString &name) {
        SaveAs(window, MapFile(name));
        const std::vector<diagram::Node *> selected = flow.SelectedNodes();
        flow.UnselectAll();
        document::testing::ExpectSameLines(document::testing::Describe(*Loaded(MapFile(name))),
                                           document::testing::Describe(window));
        for (diagram::Node *any : selected) any->SetSelected(true);
    }

    std::mt19937 random{static_cast<unsigned>(GetParam())};
    int keys = 1;
};

NodeEdit NodeProperties::AnyEdit() {
    NodeEdit edit;
    edit.look.shape = std::uint8_t(Any(widgets::ListOf::Shapes));
    edit.look.shapeOrientation = std::uint8_t(Any(widgets::ListOf::Orientations));
    edit.look.drawStyle = std::uint8_t(Any(widgets::ListOf::DrawStyles));
    edit.look.shadow = std::uint8_t(Any(widgets::ListOf::Shadows));
    edit.look.drawWidth = float(Any(widgets::ListOf::DrawWidths));
    edit.look.autoSize = std::uint8_t(Any(widgets::ListOf::AutoSizes));
    edit.look.alignment = std::uint8_t(Any(widgets::ListOf::Alignments));
    edit.xTextMargin = Any(widgets::ListOf::Margins);
    edit.yTextMargin = Any(widgets::ListOf::Margins);
    edit.look.picturePos = std::uint8_t(Any(widgets::ListOf::PicturePositions));
    if (Sometimes()) edit.Picture = document::testing::OneColour(QRgb(random() | 0xFF000000u), 8);
    edit.look.foreColor = AnyColour();
    edit.look.fillColor = AnyColour();
    edit.look.borderColor = AnyColour();
    edit.look.font =
        diagram::Font(Sometimes() ? QStringLiteral("Arial") : QStringLiteral("Times"),
                      double(6 + random() % 30), Sometimes(), Sometimes(), Sometimes(), Sometimes());
    if (Sometimes()) edit.Text = Any(std::span<const QString>(kTexts));
    if (Sometimes()) edit.Event = Any(std::span<const QString>(kTexts));
    if (Sometimes()) edit.membership = Membership{QString::number(1 + random() % 3), AnyGroups()};
    edit.date.dated = Sometimes();
    if (Sometimes()) edit.date.value = QDate(2004, 3, 14).addDays(random() % 400);
    return edit;
}

TEST_P(NodeProperties, ComeBackByUndoAndFromTheFile) {
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        const QStringList before = document::testing::Describe(window);
        Apply(*node, AnyEdit());
        const QStringList after = document::testing::Describe(window);
        EXPECT_NE(after, before);
        flow.Undo();
        document::testing::ExpectSameLines(document::testing::Describe(window), before);
        flow.Redo();
        document::testing::ExpectSameLines(document::testing::Describe(window), after);
        ExpectSaved(QStringLiteral("%1.map").arg(round));
        if (HasFailure()) return;
    }
}

// The form hands on what it shows: what the fields of one node are is what another one gets.
TEST_P(NodeProperties, ComeThroughTheFormUnchanged) {
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        Apply(*node, AnyEdit());
        const NodeEdit stored = EditOf(*node);
        Open(*node);
        const NodeEdit shown = form->Edit();
        diagram::Node &one = AddNode(), &other = AddNode();
        WriteLook(one, stored);
        WriteLook(other, shown);
        diagram::NodeData below = other.Data();
        below.stack = one.Data().stack;
        EXPECT_EQ(diagram::Difference(one.Data(), below), diagram::Change::None);
        EXPECT_FALSE(shown.Text || shown.Event || shown.membership);
        flow.Remove(one);
        flow.Remove(other);
        if (HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(OneAndSeveral, NodeProperties, ::testing::Values(1, 2, 5));

} // namespace dialogs::testing
