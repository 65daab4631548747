#include "widgets/ChoicePopup.h"

#include "widgets/SwatchIcon.h"

#include <gtest/gtest.h>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QToolButton>

namespace widgets::testing {

namespace {

// A popup of two sections, five colours in rows of three and two rows with names, and what was chosen.
class Choices : public ::testing::Test {
protected:
    void Open(std::vector<ChoiceSection> sections) {
        anchor.setGeometry(100, 100, 80, 30);
        anchor.show();
        popup = new ChoicePopup(QStringLiteral("Colours"), sections, &anchor);
        popup->OpenAt(Place());
    }
    void Open(int current = -1) {
        ChoiceSection grid{QStringLiteral("Palette"), {}, 3};
        for (const char *name : {"amber", "blue", "cyan", "denim", "ecru"}) grid.choices.push_back(Of(name));
        if (current >= 0) grid.choices[std::size_t(current)].current = true;
        Open({grid, {{}, {}, 1}, {{}, {Of("none"), Of("other")}, 1, true}});
    }
    QRect Place() const { return {anchor.mapToGlobal(QPoint()), anchor.size()}; }
    Choice Of(const char *name) {
        const QString text = QString::fromLatin1(name);
        return {text, SwatchIcon(0x123456), false, [this, text] {
                    chosen << text;
                    wasOpen = popup && popup->isVisible();
                }};
    }
    QString Focused() const {
        const auto *button = qobject_cast<QToolButton *>(popup->focusWidget());
        return button ? button->text() : QString();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup.data(), key, modifiers);
    }

    QWidget anchor;
    QPointer<ChoicePopup> popup;
    QStringList chosen;
    bool wasOpen = false;
};

} // namespace

TEST_F(Choices, BeginAtTheFirstOrAtTheOneThatIsMarked) {
    Open();
    EXPECT_EQ(Focused(), QStringLiteral("amber"));
    popup->close();
    Open(3);
    EXPECT_EQ(Focused(), QStringLiteral("denim"));
    EXPECT_TRUE(popup->Buttons()[3]->isChecked());
    EXPECT_FALSE(popup->Buttons()[2]->isChecked());
}

TEST_F(Choices, BeginAtTheFirstOfTwoThatAreMarked) {
    ChoiceSection grid{QStringLiteral("Palette"), {Of("amber"), Of("blue")}, 2};
    ChoiceSection below{QStringLiteral("New"), {Of("none"), Of("other")}, 1, true};
    grid.choices[1].current = below.choices[0].current = true;
    Open({grid, below});
    EXPECT_EQ(Focused(), QStringLiteral("blue"));
    EXPECT_TRUE(popup->Buttons()[2]->isChecked());
    popup->close();
    grid.choices[1].current = false;
    Open({grid, below});
    EXPECT_EQ(Focused(), QStringLiteral("none")) << "the only one";
}

TEST_F(Choices, TheArrowsGoFromRowToRowThroughAllSections) {
    Open();
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    EXPECT_EQ(Focused(), QStringLiteral("cyan"));
    Key(Qt::Key_Down);
    EXPECT_EQ(Focused(), QStringLiteral("ecru")) << "the nearest of a shorter row";
    Key(Qt::Key_Down);
    EXPECT_EQ(Focused(), QStringLiteral("none"));
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Focused(), QStringLiteral("amber")) << "begins anew";
    Key(Qt::Key_Left);
    EXPECT_EQ(Focused(), QStringLiteral("other"));
    Key(Qt::Key_Up);
    EXPECT_EQ(Focused(), QStringLiteral("none"));
    Key(Qt::Key_Home);
    EXPECT_EQ(Focused(), QStringLiteral("amber"));
    Key(Qt::Key_End);
    EXPECT_EQ(Focused(), QStringLiteral("other"));
}

TEST_F(Choices, TabGoesFromSectionToSectionAndLettersFindNames) {
    Open();
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focused(), QStringLiteral("none"));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focused(), QStringLiteral("amber"));
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(), QStringLiteral("none"));
    Key(Qt::Key_C);
    EXPECT_EQ(Focused(), QStringLiteral("cyan"));
    Key(Qt::Key_X);
    EXPECT_EQ(Focused(), QStringLiteral("cyan"));
}

TEST_F(Choices, EnterSpaceAndAClickChooseAndThePopupIsGoneByThen) {
    Open();
    Key(Qt::Key_Return);
    Open();
    Key(Qt::Key_Right);
    Key(Qt::Key_Space);
    Open();
    QTest::mouseClick(popup->Buttons()[4], Qt::LeftButton);
    EXPECT_EQ(chosen, QStringList({QStringLiteral("amber"), QStringLiteral("blue"), QStringLiteral("ecru")}));
    EXPECT_FALSE(wasOpen);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(popup.isNull());
}

TEST_F(Choices, EscapeChoosesNothing) {
    Open();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(popup && popup->isVisible());
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(Choices, StandWholeOnTheScreen) {
    const QRect screen = anchor.screen()->availableGeometry();
    anchor.setGeometry(screen.right() - 30, screen.bottom() - 30, 30, 30);
    anchor.show();
    ChoiceSection grid{{}, {}, 3};
    for (int i = 0; i < 12; ++i) grid.choices.push_back(Of("x"));
    popup = new ChoicePopup(QStringLiteral("Colours"), {grid}, &anchor);
    popup->OpenAt(Place());
    EXPECT_TRUE(screen.contains(popup->geometry()));
    EXPECT_LE(popup->geometry().bottom(), anchor.mapToGlobal(QPoint()).y()) << "above";
}

TEST_F(Choices, CoverTheirPlaceWhereThereIsNoRoomBeside) {
    const QRect screen = anchor.screen()->availableGeometry();
    ChoiceSection list{{}, {}, 1, true, QSize(18, 18)};
    while (int(list.choices.size()) * 30 < screen.height() * 3 / 4) list.choices.push_back(Of("x"));
    anchor.setGeometry(screen.left(), screen.center().y(), 30, 30);
    anchor.show();
    popup = new ChoicePopup(QStringLiteral("Colours"), {list}, &anchor);
    popup->OpenAt(Place());
    EXPECT_TRUE(screen.contains(popup->geometry()));
    EXPECT_GE(popup->height(), popup->sizeHint().height()) << "nothing is cut";
}

TEST_F(Choices, NoneAtAllDoNothing) {
    Open(std::vector<ChoiceSection>{});
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Return, Qt::Key_A}) Key(key);
    EXPECT_TRUE(popup->isVisible());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(Choices, AreNamedForScreenReaders) {
    Open();
    EXPECT_EQ(popup->accessibleName(), QStringLiteral("Colours"));
    for (const QToolButton *button : popup->Buttons()) EXPECT_FALSE(button->accessibleName().isEmpty());
    EXPECT_EQ(popup->Buttons()[1]->toolTip(), QStringLiteral("blue")) << "what has no name beside it";
}

} // namespace widgets::testing
