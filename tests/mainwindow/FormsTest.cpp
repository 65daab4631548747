#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/clsLockWindowUpdate.h"
#include "mainwindow/controls/cProgressOnStatusBar.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/controls/ucEctchedLines.h"
#include "mainwindow/forms/frmAbout.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/menus/Toolbar.h"
#include "mainwindow/window/frmPics.h"
#include "settings/Settings.h"
#include "tests/mainwindow/WindowTest.h"

#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

namespace mainwindow::testing {

using Forms = WindowTest;

namespace {

// Collects the texts that the splash is painted with.
class SplashReader : public QObject {
public:
    explicit SplashReader(frmSplash &splash) : splash_(splash) { splash.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::Paint && (texts.isEmpty() || texts.last() != splash_.Doing()))
            texts.append(splash_.Doing());
        return false;
    }
    QStringList texts;

private:
    frmSplash &splash_;
};

} // namespace

TEST_F(Forms, AboutTellsTitleAndSaysWhenThereIsNoSystemInformation) {
    frmAbout form(desktop.Get(), nullptr);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("About Velmora"));
    QStringList texts;
    for (const QLabel *label : form.findChildren<QLabel *>()) texts << label->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("Version " VELMORA_VERSION)));
    form.show();
    desktop.ExpectMessage(QStringLiteral("System Information Is Unavailable At This Time"));
    form.cmdSysInfo()->click();
    form.cmdOK()->click();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Forms, SystemInformationComesFromOneOfTwoPlacesInTheRegistry) {
    const auto write = [&](const char *section, const char *value, const QString &text) {
        desktop.registry.Write(support::RegistryRoot::LocalMachine, QLatin1String(section),
                               QLatin1String(value), {support::RegistryType::String, text});
    };
    write("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", QStringLiteral("C:\\Info"));
    EXPECT_EQ(SysInfoProgram(desktop.registry), QStringLiteral("C:\\Info\\MSINFO32.EXE"));
    write("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", QStringLiteral("C:\\msinfo.exe"));
    desktop.ExpectLaunch(QStringLiteral("C:\\msinfo.exe"));
    StartSysInfo(desktop.Get());
}

TEST_F(Forms, TheProgressBarStandsInItsPanelOnceTheSizeHasSettled) {
    frmMain &window = NewWindow();
    auto *bar = window.findChild<cProgressBar *>(QStringLiteral("prg1"));
    auto *status = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    ASSERT_TRUE(bar && status);
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->isVisible(); }));
    const QWidget *panel = status->Panel(QStringLiteral("PROGRESS"));
    EXPECT_EQ(bar->parentWidget(), status);
    EXPECT_EQ(bar->x(), panel->x() + 3);
    EXPECT_EQ(bar->width(), panel->width() - 5);
    window.SetProgress(140);
    EXPECT_EQ(bar->value(), 100);
    window.DoStatus(QStringLiteral("Loading Nodes..."));
    EXPECT_EQ(status->Doing(), QStringLiteral("Loading Nodes..."));
}

TEST_F(Forms, HintsOfTheSurfaceStandInTheStatusBarWithTheProductsTerms) {
    frmMain &window = NewWindow();
    Q_EMIT window.CurrentView().HintShown(diagram::Hint::LinkNeedsNode);
    EXPECT_EQ(window.findChild<cStatusBar *>(QStringLiteral("staMain"))->Doing(),
              QStringLiteral("A Link starts and ends at a Node."));
}

TEST_F(Forms, SurfacesFillThePlaceAboveTheTabs) {
    frmMain &window = NewWindow();
    window.DoOpen(SavedMap(QStringLiteral("plan.map"), 1, 2), false);
    const QWidget *place = window.findChild<QWidget *>(QStringLiteral("picRHS"));
    for (const char *name : {"AddFlow1(0)", "AddFlow1(1)"}) {
        const QWidget *surface = window.findChild<QWidget *>(QLatin1String(name));
        ASSERT_TRUE(surface) << name;
        EXPECT_TRUE(surface->isVisible());
        EXPECT_EQ(surface->geometry(),
                  QRect(0, 0, place->width(), place->height() - window.TabStrip().TabHeight()));
    }
}

TEST_F(Forms, EveryImageOfACommandOrButtonExists) {
    for (const CommandRow &row : Commands())
        if (*row.image) {
            EXPECT_FALSE(Icon(QLatin1String(row.image)).isNull()) << row.key;
        }
    for (const auto table : {MainButtons(), FormatButtons()})
        for (const ButtonRow &row : table)
            if (*row.tag) {
                EXPECT_FALSE(Icon(QLatin1String(row.tag)).isNull()) << row.key;
            }
    EXPECT_TRUE(Icon(QStringLiteral("nothing")).isNull());
    EXPECT_TRUE(Icon(QString()).isNull());
    EXPECT_FALSE(ShapeIcon(0).pixmap(20, 20).isNull());
}

TEST_F(Forms, IconsAreFaintWhenDisabled) {
    const QImage normal = Icon(QStringLiteral("save")).pixmap(QSize(32, 32), QIcon::Normal).toImage();
    const QImage disabled = Icon(QStringLiteral("save")).pixmap(QSize(32, 32), QIcon::Disabled).toImage();
    EXPECT_EQ(normal.size(), disabled.size());
    int stronger = 0;
    for (int y = 0; y < normal.height(); ++y)
        for (int x = 0; x < normal.width(); ++x)
            stronger += qAlpha(normal.pixel(x, y)) > qAlpha(disabled.pixel(x, y));
    EXPECT_GT(stronger, 50);
}

TEST_F(Forms, TheSplashShowsTheDeliveredPictureInItsSize) {
    QImage image(200, 120, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(ProgramFile(QStringLiteral("Splash.jpg"))));
    frmSplash splash(QStringLiteral("Velmora"));
    EXPECT_EQ(splash.size(), QSize(200, 120));
    EXPECT_EQ(splash.grab().toImage().pixelColor(5, 5).red(), 254);
    EXPECT_EQ(frmSplash::Current(), &splash);
    frmSplash::ShowDoing(QStringLiteral("Loading Menus"));
    EXPECT_EQ(splash.Doing(), QStringLiteral("Loading Menus"));
}

TEST_F(Forms, TheSplashTellsWhatAWindowIsLoading) {
    frmSplash splash(QStringLiteral("Velmora"));
    splash.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&splash));
    ProcessEvents();
    const SplashReader reader(splash);
    const frmMain window(desktop.Get());
    EXPECT_EQ(reader.texts, QStringList({"Loading Bar Items", "Loading Bar Items (Getting Dirs)...",
                                         "Loading Bar Items (Getting Files)...", "Loading Menus",
                                         "Loading Toolbars", "Loading Defaults", ""}));
}

TEST_F(Forms, TheTabsAreNamedByTheProductsTerm) {
    settings::ProductTerms terms = settings::Terms();
    terms.SLICE = QStringLiteral("Scene");
    settings::SetTerms(terms);
    const auto *tabs = NewWindow().findChild<QTabBar *>(QStringLiteral("SSTab_ctl"));
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->accessibleName(), QStringLiteral("Scenes"));
}

TEST_F(Forms, ASplashThatIsNotVisibleGoesWithAnEmptyText) {
    new frmSplash(QStringLiteral("Velmora"));
    frmSplash::ShowDoing(QString());
    EXPECT_EQ(frmSplash::Current(), nullptr);
}

TEST_F(Forms, FontListsAreFilledAtTheFirstQuestion) {
    NewWindow();
    EXPECT_TRUE(frmPics::Shared().cboFontSize().contains(QStringLiteral("12")));
    EXPECT_FALSE(frmPics::Shared().cboFont().isEmpty());
}

TEST(ucEctchedLines, IsVerticalAtFirst) {
    ucEctchedLines line;
    EXPECT_TRUE(line.Vertical());
    EXPECT_TRUE(line.setProperty("Vertical", false));
    EXPECT_FALSE(line.Vertical());
}

TEST(clsLockWindowUpdate, HoldsPaintingBackUntilItIsDestroyed) {
    QWidget first, second;
    {
        clsLockWindowUpdate lock(first);
        EXPECT_FALSE(first.updatesEnabled());
        lock.Sethwnd(&second);
        EXPECT_TRUE(first.updatesEnabled());
        EXPECT_FALSE(second.updatesEnabled());
    }
    EXPECT_TRUE(second.updatesEnabled());
}

} // namespace mainwindow::testing
