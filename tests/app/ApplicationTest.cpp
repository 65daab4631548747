#include "app/Application.h"

#include "app/DeveloperOptions.h"
#include "app/ProcessAge.h"
#include "support/Error.h"
#include "support/testing/ScriptedDesktop.h"
#include "widgets/ProgramStyle.h"

#include <gtest/gtest.h>
#include <QDialog>
#include <QEvent>
#include <QTimer>

namespace app {

namespace {

class Throwing : public QObject {
public:
    bool event(QEvent *event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        throw support::Error(5, QStringLiteral("Throwing"),
                             QStringLiteral("Invalid procedure call or argument"));
    }
};

} // namespace

TEST(Application, AnErrorThatAHandlerLetThroughIsReportedAndTheProcessGoesOn) {
    support::testing::ScriptedDesktop desktop;
    Throwing receiver;
    desktop.ExpectMessage(QStringLiteral("Invalid procedure call or argument\r\r(Error #5)"));
    QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
    QCoreApplication::processEvents();
    ASSERT_EQ(desktop.Messages().size(), 1u);
    EXPECT_EQ(desktop.Messages()[0].title, QStringLiteral("Error in QObject: Sub Event"));
    EXPECT_EQ(desktop.Messages()[0].buttons, support::Buttons::Ok);
}

TEST(Application, ShowsTheFramesOfBoxesToTickOnAnyPalette) {
    EXPECT_NE(qobject_cast<widgets::ProgramStyle *>(QApplication::style()), nullptr);
}

TEST(CommandLine, IsOneTextBehindTheProgramsName) {
    EXPECT_EQ(CommandLine({QStringLiteral("velmora"), QStringLiteral("/my"), QStringLiteral("plan.map")}),
              QStringLiteral("/my plan.map"));
    EXPECT_TRUE(CommandLine({QStringLiteral("velmora")}).isEmpty());
}

TEST(FormOwner, IsTheFormFromWhichAnotherIsAskedForElseTheWindow) {
    QWidget window;
    window.show();
    EXPECT_EQ(FormOwner(&window), &window);
    QDialog form(&window);
    form.setModal(true);
    form.show();
    EXPECT_EQ(FormOwner(&window), &form);
    EXPECT_EQ(FormOwner(nullptr), &form);
    form.hide();
    EXPECT_EQ(FormOwner(&window), &window);
}

TEST(DeveloperOptions, ComeFromTheEnvironment) {
    EXPECT_FALSE(ReadDeveloperOptions().EndsAfterPaint());
    EXPECT_FALSE(ReadDeveloperOptions().noSplash);
    qputenv("VELMORA_NO_SPLASH", "1");
    qputenv("VELMORA_SCREENSHOT", "window.png");
    EXPECT_TRUE(ReadDeveloperOptions().noSplash);
    EXPECT_TRUE(ReadDeveloperOptions().EndsAfterPaint());
    EXPECT_EQ(ReadDeveloperOptions().screenshot, QStringLiteral("window.png"));
    qunsetenv("VELMORA_NO_SPLASH");
    qunsetenv("VELMORA_SCREENSHOT");
}

TEST(ProcessAge, NeverGoesBack) {
    const double first = ProcessAge();
    EXPECT_GE(first, 0);
    EXPECT_GE(ProcessAge(), first);
}

} // namespace app
