#include "diagram/model/Surface.h"
#include "dialogs/frmLinkDialog.h"
#include "dialogs/LinkSample.h"
#include "dialogs/PlainTextBox.h"
#include "document/Tags.h"
#include "tests/Controls.h"
#include "tests/document/MapTest.h"
#include "widgets/SwatchButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace dialogs::testing {

namespace {

// Three links between two nodes.
class LinkForm : public document::testing::MapTest {
protected:
    LinkForm() {
        for (int at = 0; at < 3; ++at) links.push_back(&a.Links().Add(b));
    }
    frmLinkDialog &Open(diagram::Link &link, const std::vector<diagram::Link *> &selected = {}) {
        argument = std::make_unique<LinkDialogArgument>(LinkDialogArgument{*window, surface, link, selected});
        form = std::make_unique<frmLinkDialog>(*argument, nullptr);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
        return *form;
    }
    template <typename Widget = QComboBox>
    Widget &Find(const char *name) {
        return tests::ControlOf<Widget>(*form, name);
    }
    void Choose(const char *list, const char *entry) {
        Find(list).setCurrentText(QLatin1String(entry));
        ASSERT_EQ(Find(list).currentText(), QLatin1String(entry));
    }
    void Press(const char *button) { Find<QPushButton>(button).click(); }

    std::unique_ptr<document::MemoryWindow> window = NewWindow();
    diagram::Surface &surface = window->AddFlow1()[0];
    diagram::Node &a = surface.Nodes().Add(0, 0, 900, 600), &b = surface.Nodes().Add(5000, 0, 900, 600);
    std::vector<diagram::Link *> links;
    std::unique_ptr<LinkDialogArgument> argument;
    std::unique_ptr<frmLinkDialog> form;
};

} // namespace

TEST_F(LinkForm, CarriesTheProductsCaptions) {
    Open(*links[0]);
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Link Properties"));
    const std::pair<const char *, const char *> labels[] = {
        {"cboArrowOrigin", "Arrow Origin"},
        {"cboArrowMiddle", "Arrow Middle"},
        {"cboArrowDest", "Arrow Destination"},
        {"cboArrowOriginSize", "Arrow Size Origin"},
        {"cboArrowMiddleSize", "Arrow Size Middle"},
        {"cboArrowSizeDest", "Arrow Size Destination"},
        {"cboLinkStyle", "LinkStyle"},
        {"cboDrawStyle", "Draw Style"},
        {"cboDrawWidth", "Draw Width"},
        {"cboJumpStyle", "Jump Style"},
        {"txtText", "Text"},
        {"cmdChangeFill", "&Fill Color"},
        {"cmdChangeFore", "Fore Color"},
    };
    for (const auto &[control, caption] : labels) {
        QStringList captions;
        for (const QLabel *label : form->findChildren<QLabel *>())
            if (label->buddy() && label->buddy()->objectName() == QLatin1String(control))
                captions << label->text();
        EXPECT_EQ(captions, QStringList(QLatin1String(caption))) << control;
        EXPECT_FALSE(Find<QWidget>(control).accessibleName().isEmpty()) << control;
    }
    EXPECT_EQ(Find<QCheckBox>("chkOriented").text(), QStringLiteral("Oriented Text"));
    EXPECT_EQ(Find<QPushButton>("CancelButton").text(), QStringLiteral("Cancel"));
    EXPECT_EQ(Find<QPushButton>("cmdApply").text(), QStringLiteral("Apply"));
}

TEST_F(LinkForm, ShowsEveryValueOfTheLink) {
    diagram::Link &link = *links[0];
    link.SetArrowSource(3), link.SetArrowMiddle(4), link.SetArrowDest(12);
    link.SetArrowSizeSource(0), link.SetArrowSizeMiddle(1), link.SetArrowSizeDest(2);
    link.SetStyle(5), link.SetDrawStyle(6), link.SetDrawWidth(8), link.SetJumpStyle(2);
    link.SetLineColor(0x112233), link.SetForeColor(0x445566);
    link.SetText(QStringLiteral("label")), link.SetOriented(false);
    Open(link);
    const std::pair<const char *, int> shown[] = {
        {"cboArrowOrigin", 3},     {"cboArrowMiddle", 4},   {"cboArrowDest", 12}, {"cboArrowOriginSize", 0},
        {"cboArrowMiddleSize", 1}, {"cboArrowSizeDest", 2}, {"cboLinkStyle", 5},  {"cboDrawStyle", 6},
        {"cboDrawWidth", 8},       {"cboJumpStyle", 2},
    };
    for (const auto &[list, value] : shown) EXPECT_EQ(Find(list).currentData().toInt(), value) << list;
    EXPECT_EQ(Find<widgets::SwatchButton>("cmdChangeFill").Value(), 0x112233);
    EXPECT_EQ(Find<widgets::SwatchButton>("cmdChangeFore").Value(), 0x445566);
    EXPECT_EQ(Find<PlainTextBox>("txtText").Text(), QStringLiteral("label"));
    EXPECT_FALSE(Find<QCheckBox>("chkOriented").isChecked());
}

TEST_F(LinkForm, TheListsHaveTheTablesEntries) {
    Open(*links[0]);
    EXPECT_EQ(Find("cboArrowOrigin").count(), 33);
    EXPECT_EQ(Find("cboLinkStyle").count(), 16);
    EXPECT_EQ(Find("cboLinkStyle").itemText(14), QStringLiteral("Spline"));
    EXPECT_EQ(Find("cboLinkStyle").itemText(15), QStringLiteral("Automatic orthogonal"));
    EXPECT_EQ(Find("cboDrawWidth").count(), 9);
    const auto entries = [this](const char *list) {
        QStringList texts;
        for (int at = 0; at < Find(list).count(); ++at) texts << Find(list).itemText(at);
        return texts;
    };
    EXPECT_EQ(entries("cboArrowSizeDest"), QStringList({"Small", "Medium", "Big"}));
    EXPECT_EQ(entries("cboDrawStyle"), QStringList({"Solid", "Dash", "Dot", "Dash-Dot", "Dash-Dot-Dot",
                                                    "Transparent", "Inside Solid"}));
    EXPECT_EQ(entries("cboJumpStyle"), QStringList({"No Jump", "Arch Jump", "Break in the line"}));
}

TEST_F(LinkForm, OkWritesWhatTheControlsShowAndApplyLeavesTheFormOpen) {
    Open(*links[0]);
    Choose("cboDrawStyle", "Dash-Dot");
    Choose("cboDrawWidth", "5");
    Press("cmdApply");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(links[0]->DrawStyle(), 3);
    Choose("cboJumpStyle", "Arch Jump");
    Find<QCheckBox>("chkOriented").click();
    Press("OKButton");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(links[0]->DrawWidth(), 5);
    EXPECT_EQ(links[0]->JumpStyle(), 1);
    EXPECT_FALSE(links[0]->Oriented());
    ASSERT_EQ(argument->former.links.size(), 1u);
    EXPECT_EQ(argument->former.links[0].second.drawStyle, 0) << "as it was before the first Apply";
}

TEST_F(LinkForm, CancelWritesNothing) {
    Open(*links[0]);
    Choose("cboDrawStyle", "Dot");
    Press("CancelButton");
    EXPECT_EQ(links[0]->DrawStyle(), 0);
    EXPECT_TRUE(argument->former.IsEmpty());
    EXPECT_FALSE(window->clsSettings().Dirty);
}

TEST_F(LinkForm, TwoSelectedLinksTakeTheSameTextAndFont) {
    links[0]->SetText(QStringLiteral("first")), links[1]->SetText(QStringLiteral("second"));
    Open(*links[0], {links[0], links[1]});
    desktop.ExpectFont({QStringLiteral("Courier"), 17, true, true, true, true}, 0x0000FF);
    Press("cmdFont");
    Press("OKButton");
    for (const diagram::Link *link : {links[0], links[1]}) {
        EXPECT_EQ(link->Text(), QStringLiteral("first"));
        EXPECT_EQ(link->Font(), diagram::Font(QStringLiteral("Courier"), 17, true, true, true, true));
        EXPECT_EQ(link->ForeColor(), 0x0000FF);
    }
    EXPECT_EQ(links[2]->Text(), QString());
}

TEST_F(LinkForm, ALinkBesideASelectionChangesAloneAndTheOthersStaySelected) {
    links[0]->SetSelected(true), links[1]->SetSelected(true);
    Open(*links[2]);
    QTest::keyClicks(&Find<PlainTextBox>("txtText"), QStringLiteral("third"));
    Press("OKButton");
    EXPECT_EQ(links[2]->Text(), QStringLiteral("third"));
    for (const diagram::Link *link : {links[0], links[1]}) {
        EXPECT_EQ(link->Text(), QString());
        EXPECT_TRUE(link->Selected());
    }
}

TEST_F(LinkForm, ACancelledColourDialogLeavesTheSwatch) {
    Open(*links[0]);
    const support::Colour before = links[0]->LineColor();
    desktop.ExpectColour(support::kNoColour);
    Press("cmdChangeFill");
    EXPECT_EQ(Find<widgets::SwatchButton>("cmdChangeFill").Value(), before);
    desktop.ExpectColour(0x00FF00);
    Press("cmdChangeFill");
    desktop.ExpectColour(0xFF0000);
    Press("cmdChangeFore");
    Press("OKButton");
    EXPECT_EQ(links[0]->LineColor(), 0x00FF00) << "of the line: a link has no fill";
    EXPECT_EQ(links[0]->ForeColor(), 0xFF0000);
}

TEST_F(LinkForm, ACancelledFontDialogLeavesFontAndColour) {
    Open(*links[0]);
    const diagram::Font before = links[0]->Font();
    desktop.ExpectFontCancelled();
    Press("cmdFont");
    Press("OKButton");
    EXPECT_EQ(links[0]->Font(), before);
}

TEST_F(LinkForm, NoTagNoKeyAndNoEndChanges) {
    document::SetTag(a, document::tags::kHyper, QStringLiteral("Yes"));
    const QString tag = a.Tag(), key = links[0]->Key();
    Open(*links[0]);
    Choose("cboLinkStyle", "Bezier");
    Press("OKButton");
    EXPECT_EQ(a.Tag(), tag);
    EXPECT_EQ(links[0]->Key(), key);
    EXPECT_EQ(&links[0]->Source(), &a);
    EXPECT_EQ(&links[0]->Destination(), &b);
}

TEST_F(LinkForm, AWidthOutsideOfTheListStandsAsAnEntryOfItsOwnAndStays) {
    links[0]->SetDrawWidth(9);
    Open(*links[0]);
    EXPECT_EQ(Find("cboDrawWidth").currentText(), QStringLiteral("9"));
    Press("OKButton");
    EXPECT_EQ(links[0]->DrawWidth(), 9);
    links[0]->SetDrawWidth(2.5F);
    Open(*links[0]);
    Press("OKButton");
    EXPECT_EQ(links[0]->DrawWidth(), 2.5F);
}

TEST_F(LinkForm, ATextThatIsNotEditedKeepsLineEndsAndHardBlanks) {
    const QString text = QStringLiteral("a\nb\r\nc\u00a0d");
    links[0]->SetText(text);
    Open(*links[0]);
    Press("cmdApply");
    Press("OKButton");
    EXPECT_EQ(links[0]->Text(), text);
}

TEST_F(LinkForm, ATypedTextIsWritten) {
    Open(*links[0]);
    QTest::keyClicks(&Find<PlainTextBox>("txtText"), QStringLiteral("typed"));
    Press("OKButton");
    EXPECT_EQ(links[0]->Text(), QStringLiteral("typed"));
}

TEST_F(LinkForm, TheSampleFollowsTheControls) {
    Open(*links[0]);
    Choose("cboDrawWidth", "4");
    Choose("cboLinkStyle", "Bezier");
    QTest::keyClicks(&Find<PlainTextBox>("txtText"), QStringLiteral("x"));
    const diagram::Link &shown = Find<LinkSample>("LinkSample").Link();
    EXPECT_EQ(shown.DrawWidth(), 4);
    EXPECT_EQ(shown.Style(), 1);
    EXPECT_EQ(shown.Text(), QStringLiteral("x"));
    EXPECT_EQ(links[0]->DrawWidth(), 1);
}

} // namespace dialogs::testing
