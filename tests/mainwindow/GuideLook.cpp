// The guide's table of the look bar.
#include "tests/mainwindow/GuideReader.h"

#include "mainwindow/look/LookButton.h"
#include "mainwindow/look/RecentColours.h"
#include "widgets/ChoicePopup.h"
#include "widgets/ColourPalette.h"

#include <QApplication>
#include <QTest>

namespace mainwindow::testing {

namespace {

void Choose(Reader &r, const char *key, const char *name) {
    QTest::mouseClick(r.window->findChild<LookButton *>(QLatin1String(key)), Qt::LeftButton);
    auto *popup = qobject_cast<widgets::ChoicePopup *>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr) << key;
    for (QToolButton *button : popup->Buttons())
        if (button->text() == QLatin1String(name)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return r.ProcessEvents();
        }
    FAIL() << name;
}

void SelectTwo(Reader &r) {
    r.Select(*r.a);
    r.b->SetSelected(true);
    r.ProcessEvents();
}

void ChangeHowThingsLook(Reader &r) {
    SelectTwo(r);
    Choose(r, "lookFill", "sky");
    EXPECT_EQ(r.a->FillColor(), widgets::PaletteColours()[0].colour);
    EXPECT_EQ(r.b->FillColor(), widgets::PaletteColours()[0].colour);
    Choose(r, "lookLineWidth", "4 px");
    EXPECT_EQ(r.b->DrawWidth(), 4);
    EXPECT_NE(r.c->DrawWidth(), 4);
}

void TakeAnyColour(Reader &r) {
    r.Select(*r.a);
    r.desktop.ExpectColour(0x123456);
    Choose(r, "lookFill", "Other...");
    EXPECT_EQ(r.a->FillColor(), 0x123456);
    r.Select(*r.b);
    Choose(r, "lookFill", qPrintable(widgets::NameInPalette(0x123456)));
    EXPECT_EQ(r.b->FillColor(), 0x123456);
}

void GiveALookToOthers(Reader &r) {
    r.a->SetFillColor(0x123456);
    r.Select(*r.a);
    r.Press("Ctrl+Alt+C");
    r.Select(*r.b);
    r.c->SetSelected(true);
    r.Press("Ctrl+Alt+V");
    EXPECT_EQ(r.b->FillColor(), 0x123456);
    EXPECT_EQ(r.c->FillColor(), 0x123456);
    r.window = &r.Another();
    diagram::Node &there = AddNode(*r.window, 300, 300);
    there.SetSelected(true);
    r.Press("Ctrl+Alt+V");
    EXPECT_EQ(there.FillColor(), 0x123456);
}

constexpr ToldStep kLook[] = {
    {"change how things look | select them, press a button of the look bar and choose", ChangeHowThingsLook},
    {"take any colour | *Other...* at the end of a button's colours; it stands under *Recent* from then on",
     TakeAnyColour},
    {"give a look to others | Ctrl+Alt+C on what has it; then select the others, on "
     "any slice or in any window, and Ctrl+Alt+V",
     GiveALookToOthers},
};

} // namespace

std::span<const ToldStep> LookSteps() { return kLook; }

} // namespace mainwindow::testing
