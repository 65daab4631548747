#include "support/real/RealDesktop.h"

#include "support/real/QtMessageBoxes.h"
#include "tests/support_real/Shown.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFontMetrics>
#include <QIcon>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

using namespace support;

namespace {

class RealBoxes : public ::testing::Test {
protected:
    RealDesktop real_{std::make_unique<MemoryRegistryStore>()};
    Desktop &desktop_ = real_.Get();
};

} // namespace

TEST_F(RealBoxes, Show_GivesTheButtonOfTheKeyPressed) {
    struct {
        Buttons buttons;
        Qt::Key key;
        Answer answer;
    } constexpr kRows[] = {
        {Buttons::YesNoCancel, Qt::Key_Y, Answer::Yes},
        {Buttons::YesNoCancel, Qt::Key_N, Answer::No},
        {Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel},
        {Buttons::YesNo, Qt::Key_Escape, Answer::No},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes},
        {Buttons::Ok, Qt::Key_Escape, Answer::Ok},
        {Buttons::OkCancel, Qt::Key_Escape, Answer::Cancel},
        {Buttons::OkCancel, Qt::Key_Return, Answer::Ok},
    };
    for (const auto &row : kRows) {
        OnceShown<QMessageBox>([&](QMessageBox &box) { QTest::keyClick(&box, row.key); });
        EXPECT_EQ(desktop_.messageBoxes.Show("Text", row.buttons, Icon::Question, "Title"), row.answer)
            << static_cast<int>(row.buttons) << " " << row.key;
    }
}

TEST_F(RealBoxes, Show_BreaksLinesAtCarriageReturnsAndShowsPlainText) {
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    QString title;
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        text = box.text();
        format = box.textFormat();
        title = box.windowTitle();
        box.accept();
    });
    desktop_.messageBoxes.Show("<b>a</b>\r\rb\r\nc\nd", Buttons::Ok, Icon::None, "Error in frmMain: Sub X");
    EXPECT_EQ(text, "<b>a</b>\n\nb\nc\nd");
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_EQ(title, "Error in frmMain: Sub X");
}

TEST(FitForBox, KeepsBothEndsOfAnOverlongTextAndLetsLongRunsBreak) {
    EXPECT_EQ(FitForBox(QStringLiteral("Save Changes?")), QStringLiteral("Save Changes?"));
    QString fit = FitForBox(u'a' + QString(10000, u'x') + u'z');
    EXPECT_LT(fit.size(), 1300);
    EXPECT_TRUE(fit.startsWith(u'a'));
    EXPECT_TRUE(fit.endsWith(u'z'));
    for (const QString &run : fit.replace(QChar(0x200b), u' ').split(u' ')) EXPECT_LE(run.size(), 60);
}

TEST_F(RealBoxes, Show_WithoutATitleTakesTheApplicationsName) {
    QCoreApplication::setApplicationName("Edition");
    QString title;
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        title = box.windowTitle();
        box.accept();
    });
    desktop_.messageBoxes.Show("x", Buttons::Ok, Icon::Information, QString());
    EXPECT_EQ(title, "Edition");
}

// As when a window that was shown before is given the keyboard only now.
TEST_F(RealBoxes, Show_TakesTheKeyboardBackFromAWindowThatComesLate) {
    QWidget main;
    main.show();
    QApplication::processEvents();
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
        bool came = false;
        QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &box,
                         [&](const QWindow *now) { came = came || now == main.windowHandle(); });
        main.activateWindow();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return came && QGuiApplication::focusWindow() == box.windowHandle(); }));
        EXPECT_TRUE(box.defaultButton()->hasFocus());
        if (QWindow *keyboard = QGuiApplication::focusWindow()) QTest::keyClick(keyboard, Qt::Key_Return);
        if (box.isVisible()) box.reject();
    });
    EXPECT_EQ(desktop_.messageBoxes.Show("x", Buttons::YesNo, Icon::Question, "Title"), Answer::Yes);
}

TEST_F(RealBoxes, Show_BelongsToAWindowThatIsSeenWhereNoneIsActive) {
    const QWidget *owner = nullptr;
    QWidget main;
    main.setAttribute(Qt::WA_ShowWithoutActivating);
    main.show();
    QWindow elsewhere;
    elsewhere.show();
    elsewhere.requestActivate();
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        owner = box.parentWidget();
        box.accept();
    });
    desktop_.messageBoxes.Show("x", Buttons::Ok, Icon::None, "Title");
    EXPECT_EQ(owner, &main);
}

TEST_F(RealBoxes, Show_HidesASplashWindowForAsLong) {
    QWidget splash(nullptr, Qt::SplashScreen);
    splash.show();
    bool seen = true;
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        seen = splash.isVisible();
        EXPECT_EQ(box.parentWidget(), nullptr);
        box.accept();
    });
    desktop_.messageBoxes.Show("x", Buttons::Ok, Icon::None, "Title");
    EXPECT_FALSE(seen);
    EXPECT_TRUE(splash.isVisible());
}

TEST_F(RealBoxes, Show_ComesThroughAMenuThatIsOpen) {
    QWidget main;
    main.show();
    QMenu menu(&main);
    menu.addAction(QStringLiteral("Entry"));
    menu.popup(QPoint());
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
        if (QWindow *keyboard = QGuiApplication::focusWindow()) QTest::keyClick(keyboard, Qt::Key_Return);
        if (box.isVisible()) box.reject();
    });
    EXPECT_EQ(desktop_.messageBoxes.Show("x", Buttons::YesNo, Icon::Question, "Title"), Answer::Yes);
}

// Title bars are drawn by the desktop, in a bold font as often as not, with buttons beside the title.
TEST_F(RealBoxes, Show_IsWideEnoughForALongTitle) {
    QFont bold = QApplication::font();
    bold.setBold(true);
    int room = 0;
    OnceShown<QMessageBox>([&](QMessageBox &box) {
        room = box.width() - QFontMetrics(bold).horizontalAdvance(box.windowTitle());
        box.accept();
    });
    desktop_.messageBoxes.Show("x", Buttons::Ok, Icon::None, "Error in Qz_Source: Sub ProcessCommand");
    EXPECT_GE(room, 100);
}

TEST_F(RealBoxes, ShowSaveFileDialog_RefusesAFolderThatIsNotThere) {
    const QTemporaryDir folder;
    QString complaint;
    OnceShown<QFileDialog>([&](QFileDialog &dialog) {
        dialog.selectFile(folder.filePath("none/a.map"));
        OnceShown<QMessageBox>([&](QMessageBox &box) {
            complaint = box.text();
            OnceShown<QFileDialog>([](QFileDialog &again) { again.reject(); });
            box.accept();
        });
        static_cast<QDialog &>(dialog).done(QDialog::Accepted);
    });
    int row = 1;
    EXPECT_EQ(desktop_.dialogs.ShowSaveFileDialog("Maps|*.map", "map", folder.path(),
                                                  fileflags::kPathMustExist, nullptr, row),
              "");
    EXPECT_EQ(complaint,
              folder.filePath("none/a.map") + "\nPath does not exist.\nCheck the path and try again.");
}

TEST_F(RealBoxes, ShowSaveFileDialog_RefusesANameOfWhichItWouldTakeAPart) {
    const QTemporaryDir folder;
    QString complaint;
    OnceShown<QFileDialog>([&](QFileDialog &dialog) {
        dialog.findChild<QLineEdit *>("fileNameEdit")->setText("Plan \"draft\" 3");
        OnceShown<QMessageBox>([&](QMessageBox &box) {
            complaint = box.text();
            box.accept();
        });
        QMetaObject::invokeMethod(&dialog, "accept");
        EXPECT_TRUE(dialog.isVisible());
        dialog.findChild<QLineEdit *>("fileNameEdit")->setText("Plan draft 3");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    int row = 1;
    EXPECT_EQ(desktop_.dialogs.ShowSaveFileDialog("Maps|*.map", "map", folder.path(), 0, nullptr, row),
              folder.filePath("Plan draft 3.map"));
    EXPECT_EQ(complaint, "Plan \"draft\" 3\nA file name cannot hold quotation marks.");
}

TEST_F(RealBoxes, ShowSaveFileDialog_StartsWithTheNameBehindTheFolder) {
    const QTemporaryDir folder;
    OnceShown<QFileDialog>([](QFileDialog &dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
    int row = 1;
    EXPECT_EQ(desktop_.dialogs.ShowSaveFileDialog("Maps|*.map", "map", folder.filePath("plan.map"), 0,
                                                  nullptr, row),
              folder.filePath("plan.map"));
}

TEST_F(RealBoxes, ABoxWhoseYesDestroysHasNoAsTheButtonForEnter) {
    for (const EnterPresses enter : {EnterPresses::Consent, EnterPresses::No}) {
        OnceShown<QMessageBox>([&](QMessageBox &box) {
            const QMessageBox::StandardButton expected =
                enter == EnterPresses::No ? QMessageBox::No : QMessageBox::Yes;
            EXPECT_EQ(box.defaultButton(), box.button(expected));
            box.reject();
        });
        desktop_.messageBoxes.Show("x", Buttons::YesNo, Icon::Question, "Velmora", enter);
    }
}

TEST_F(RealBoxes, ShowOpenFileDialog_GivesThePathAndTheRowChosen) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.csv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QStringList filters;
    OnceShown<QFileDialog>([&](QFileDialog &dialog) {
        filters = dialog.nameFilters();
        EXPECT_EQ(SelectedFilterRow(dialog), 2);
        dialog.selectNameFilter(filters[2]);
        dialog.selectFile(folder.filePath("a.csv"));
        static_cast<QDialog &>(dialog).done(QDialog::Accepted);
    });
    int row = 2;
    const QString path =
        desktop_.dialogs.ShowOpenFileDialog("Maps|*.map|Text|*.txt|CSV|*.csv;*.tsv", "map", folder.path(),
                                            fileflags::kFileMustExist, nullptr, row);
    EXPECT_EQ(path, folder.filePath("a.csv"));
    EXPECT_EQ(row, 3);
    EXPECT_EQ(filters, (QStringList{"Maps (*.map)", "Text (*.txt)", "CSV (*.csv *.tsv)"}));
}

TEST_F(RealBoxes, AFileDialogThatIsCancelled_GivesTheEmptyTextAndKeepsTheRow) {
    OnceShown<QFileDialog>([](QFileDialog &dialog) {
        dialog.selectNameFilter(dialog.nameFilters().last());
        dialog.reject();
    });
    int row = 1;
    EXPECT_EQ(
        desktop_.dialogs.ShowSaveFileDialog("Maps|*.map|All Files|*.*", "map", QString(), 0, nullptr, row),
        "");
    EXPECT_EQ(row, 1);
}

TEST_F(RealBoxes, SetUpFileDialog_GivesNamesTheEndingOfTheRowThatIsSelected) {
    QFileDialog dialog;
    SetUpFileDialog(dialog, {true, "Flat|*.flt|Pages|*.htm;*.html|All Files|*.*", "flt", QString(), 0, 2});
    EXPECT_EQ(dialog.defaultSuffix(), "htm");
    const auto select = [&](int row) {
        dialog.selectNameFilter(dialog.nameFilters().at(row));
        Q_EMIT dialog.filterSelected(dialog.selectedNameFilter()); // as a choice of the user's does
        return dialog.defaultSuffix();
    };
    EXPECT_EQ(select(0), "flt");
    EXPECT_EQ(select(1), "htm");
    EXPECT_EQ(select(2), "flt");
}

TEST_F(RealBoxes, SetUpFileDialog_MapsTheFlags) {
    QFileDialog dialog;
    SetUpFileDialog(dialog,
                    {true, "Maps|*.map|All Files|*.*", "*.map", QString(), fileflags::kOverwritePrompt, 2});
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.defaultSuffix(), "map");
    EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    EXPECT_EQ(SelectedFilterRow(dialog), 2);
    SetUpFileDialog(dialog, {false, "Maps|*.map", "", QString(), fileflags::kFileMustExist, 1});
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    SetUpFileDialog(dialog, {false, "Maps|*.map", "", QString(), 0, 1});
    EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
}

TEST_F(RealBoxes, ShowColorDialog_GivesTheStartColourOnOkAndMinusOneOnCancel) {
    OnceShown<QDialog>([](QDialog &dialog) { dialog.accept(); });
    EXPECT_EQ(desktop_.dialogs.ShowColorDialog(nullptr, true, Rgb(10, 20, 30)), Rgb(10, 20, 30));
    OnceShown<QDialog>([](QDialog &dialog) { dialog.accept(); });
    EXPECT_EQ(desktop_.dialogs.ShowColorDialog(nullptr, false, static_cast<Colour>(0x80000005)), kWhite);
    OnceShown<QDialog>([](QDialog &dialog) { dialog.accept(); });
    EXPECT_EQ(desktop_.dialogs.ShowColorDialog(nullptr, false, 0), kBlack);
    OnceShown<QDialog>([](QDialog &dialog) { dialog.reject(); });
    EXPECT_EQ(desktop_.dialogs.ShowColorDialog(nullptr, true, 0), -1);
}

TEST_F(RealBoxes, ShowFontDialog_TakesTheChoiceOnOkAndKeepsBothOnCancel) {
    const FontChoice start{QApplication::font().family(), 12, true, false, true, true};
    FontChoice font = start;
    Colour colour = 7;
    OnceShown<QDialog>([](QDialog &dialog) { dialog.reject(); });
    desktop_.dialogs.ShowFontDialog(nullptr, 0, font, colour);
    EXPECT_EQ(font.size, 12);
    EXPECT_EQ(colour, 7);
    OnceShown<QDialog>([](QDialog &dialog) { dialog.accept(); });
    desktop_.dialogs.ShowFontDialog(nullptr, 0, font, colour);
    EXPECT_TRUE(font.underline);
    EXPECT_TRUE(font.strike);
    EXPECT_EQ(font.size, 12);
    EXPECT_EQ(colour, 7);
}

TEST_F(RealBoxes, ShowFontDialog_HasAButtonForTheColour) {
    FontChoice font{QApplication::font().family(), 12, false, false, false, false};
    Colour colour = 7;
    OnceShown<QDialog>([](QDialog &dialog) {
        QPushButton *button = nullptr;
        for (QPushButton *candidate : dialog.findChildren<QPushButton *>())
            if (candidate->text() == "&Color...") button = candidate;
        ASSERT_NE(button, nullptr);
        OnceShown<QColorDialog>([](QColorDialog &colours) {
            EXPECT_EQ(colours.currentColor(), ToQColor(7));
            colours.setCurrentColor(Qt::blue);
            colours.accept();
        });
        button->click();
        dialog.accept();
    });
    desktop_.dialogs.ShowFontDialog(nullptr, 0, font, colour);
    EXPECT_EQ(colour, Rgb(0, 0, 255));
}

TEST_F(RealBoxes, Clock_WaitsWhileEventsRun) {
    bool ran = false;
    QTimer::singleShot(0, [&] { ran = true; });
    desktop_.clock.Wait(20);
    EXPECT_TRUE(ran);
    EXPECT_GE(desktop_.clock.Timer(), 0);
    EXPECT_LT(desktop_.clock.Timer(), 86400);
}

TEST_F(RealBoxes, FileIcons_AreThereForWhateverFile) {
    for (const char *name : {"/etc/passwd", "/nowhere/paper.pdf", "/nowhere/none", ""})
        EXPECT_FALSE(desktop_.fileIcons.AssociatedIcon(QLatin1String(name)).pixmap(32, 32).isNull()) << name;
}
