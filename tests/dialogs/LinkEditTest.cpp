#include "dialogs/LinkEdit.h"

#include "diagram/edit/History.h"
#include "diagram/model/Actions.h"
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/LinkStyles.h"
#include "tests/document/MapTest.h"

#include <gtest/gtest.h>
#include <QRegularExpression>

namespace dialogs::testing {

namespace {

using diagram::Link;
using diagram::LinkData;

struct FieldRow {
    const char *name;
    void (*change)(LinkData &values);
};
// Each field that the form has, with another value than a new link's.
const FieldRow kFields[] = {
    {"ArrowDest", [](LinkData &d) { d.arrowDest = 12; }},
    {"ArrowMiddle", [](LinkData &d) { d.arrowMiddle = 32; }},
    {"ArrowSizeMiddle", [](LinkData &d) { d.arrowSizeMiddle = 2; }},
    {"ArrowSource", [](LinkData &d) { d.arrowSource = 7; }},
    {"ArrowSizeSource", [](LinkData &d) { d.arrowSizeSource = 0; }},
    {"ArrowSizeDest", [](LinkData &d) { d.arrowSizeDest = 2; }},
    {"DrawStyle", [](LinkData &d) { d.drawStyle = 4; }},
    {"DrawWidth", [](LinkData &d) { d.drawWidth = 9; }},
    {"JumpStyle", [](LinkData &d) { d.jumpStyle = 2; }},
    {"Style", [](LinkData &d) { d.style = 6; }},
    {"LineColor", [](LinkData &d) { d.lineColor = 0x123456; }},
    {"ForeColor", [](LinkData &d) { d.foreColor = 0x654321; }},
    {"Text", [](LinkData &d) { d.text = QStringLiteral("one\r\ntwo\u00a0three"); }},
    {"Font", [](LinkData &d) { d.font = diagram::Font(QStringLiteral("Courier"), 14, true, true); }},
    {"Oriented", [](LinkData &d) { d.oriented = false; }},
};

// Two nodes with a plain link, one with bends of the user's, and one of another style.
class LinkEditTest : public document::testing::MapTest {
protected:
    LinkEditTest() {
        diagram::AttachHistory(surface);
        Add();
        Add().Points().Insert(1, {2500, 2500});
        Add().SetStyle(4);
    }
    Link &Add() {
        diagram::Node &a = surface.Nodes().Add(0, 1500 * float(links.size()), 900, 600);
        diagram::Node &b = surface.Nodes().Add(5000, 1500 * float(links.size()) + 700, 900, 600);
        links.push_back(&a.Links().Add(b));
        a.SetKey(QStringLiteral("from %1").arg(links.size()));
        b.SetKey(QStringLiteral("to %1").arg(links.size()));
        return *links.back();
    }
    // What a map keeps of the links.
    static QStringList LinesOf(document::MapWindow &map) {
        return document::testing::Describe(map).filter(QRegularExpression(QStringLiteral("^link;")));
    }
    QStringList Lines() { return LinesOf(*window); }
    LinkData Changed(const FieldRow &field) {
        LinkData values = links[0]->Data();
        field.change(values);
        return values;
    }
    void ApplyTo(const std::vector<Link *> &chosen, const LinkData &values) {
        const bool one = chosen.size() == 1;
        ApplyToLinks(*window, *chosen.front(), one ? std::vector<Link *>() : chosen, values);
    }

    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    diagram::Surface &surface = window->AddFlow1()[0];
    std::vector<Link *> links;
};

} // namespace

TEST_F(LinkEditTest, EveryFieldOnOneAndOnSeveralIsSavedAndReadAndCanBePutBack) {
    const QStringList before = Lines();
    const std::vector<std::vector<Link *>> choices{{links[0]}, {links[1]}, links};
    for (const FieldRow &field : kFields)
        for (const std::vector<Link *> &chosen : choices) {
            SCOPED_TRACE(field.name);
            const FormerLinks former = RememberLinks(chosen);
            ApplyTo(chosen, Changed(field));
            const QStringList changed = Lines();
            EXPECT_NE(changed, before);
            EXPECT_TRUE(HaveChanged(*window, former));
            SaveAs(*window, MapFile(QStringLiteral("links.map")));
            document::testing::ExpectSameLines(LinesOf(*Loaded(MapFile(QStringLiteral("links.map")))),
                                               changed);
            PutBackLinks(*window, former);
            document::testing::ExpectSameLines(Lines(), before);
            EXPECT_FALSE(HaveChanged(*window, former));
            for (const Link *link : links) EXPECT_EQ(link->OwnBends(), link == links[1]);
        }
}

TEST_F(LinkEditTest, AllFieldsAtOnceReachEveryLink) {
    LinkData values = links[0]->Data();
    for (const FieldRow &field : kFields) field.change(values);
    ApplyTo(links, values);
    for (const Link *link : links) {
        LinkData own = link->Data();
        EXPECT_EQ(own.text, values.text);
        EXPECT_EQ(own.font, values.font);
        EXPECT_EQ(own.drawWidth, 9);
        EXPECT_EQ(own.style, 6);
        EXPECT_EQ(own.arrowDest, 12);
    }
}

TEST_F(LinkEditTest, AutomaticRoutingGivesEachLinkItsBestStyleAndCanBePutBack) {
    const QStringList before = Lines();
    const FormerLinks former = RememberLinks(links);
    LinkData values = links[0]->Data();
    values.style = diagram::kAutomaticStyle;
    ApplyTo(links, values);
    for (const Link *link : links) {
        const diagram::LinkStyleRow *row = diagram::FindLinkStyle(link->Style());
        ASSERT_TRUE(row) << link->Style();
        EXPECT_EQ(row->form, diagram::LinkForm::Orthogonal);
        EXPECT_EQ(link->Style(), diagram::StyleFor(*link, diagram::kAutomaticStyle));
    }
    PutBackLinks(*window, former);
    document::testing::ExpectSameLines(Lines(), before);
}

TEST_F(LinkEditTest, IsNoStepOfUndoAndMakesTheMapDirty) {
    window->clsSettings().Dirty = false;
    ApplyTo(links, Changed(kFields[0]));
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_TRUE(window->clsSettings().Dirty);
}

TEST_F(LinkEditTest, AfterAnErrorTheMapIsDirtyAndNoGroupIsOpen) {
    window->clsSettings().Dirty = false;
    LinkData values = links[0]->Data();
    values.arrowDest = 12;
    values.style = 99;
    EXPECT_THROW(ApplyTo(links, values), support::Error);
    EXPECT_EQ(links[0]->ArrowDest(), 12);
    EXPECT_TRUE(window->clsSettings().Dirty);
    EXPECT_EQ(surface.Actions().Log()->Depth(), 0);
}

TEST_F(LinkEditTest, ALinkBesideTheSelectionChangesAlone) {
    ApplyToLinks(*window, *links[2], {}, Changed(kFields[10]));
    EXPECT_EQ(links[2]->LineColor(), 0x123456);
    EXPECT_NE(links[0]->LineColor(), 0x123456);
}

TEST_F(LinkEditTest, NeitherEndNorKeyNorStateOfALinkChanges) {
    LinkData values = links[2]->Data();
    values.key = QStringLiteral("other");
    values.hidden = values.marked = values.rigid = true;
    const QString key = links[0]->Key();
    const diagram::Node *source = &links[0]->Source(), *destination = &links[0]->Destination();
    ApplyTo({links[0]}, values);
    EXPECT_EQ(links[0]->Key(), key);
    EXPECT_EQ(&links[0]->Source(), source);
    EXPECT_EQ(&links[0]->Destination(), destination);
    EXPECT_FALSE(links[0]->Hidden() || links[0]->Marked() || links[0]->Rigid());
}

TEST_F(LinkEditTest, WhatIsGoneIsPassedOverByPutBack) {
    const FormerLinks former = RememberLinks(links);
    ApplyTo(links, Changed(kFields[10]));
    surface.Remove(*links[0]);
    PutBackLinks(*window, former);
    EXPECT_NE(links[1]->LineColor(), 0x123456);
    PutBackLinks(*window, {});
    EXPECT_FALSE(HaveChanged(*window, {}));
}

TEST_F(LinkEditTest, ALinkThatIsNamedTwiceIsRememberedOnce) {
    EXPECT_EQ(RememberLinks({links[0], links[1], links[0]}).links.size(), 2u);
}

} // namespace dialogs::testing
