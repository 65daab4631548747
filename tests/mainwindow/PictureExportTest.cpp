// Pictures as files: which format, the form, what is remembered.
#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/forms/frmPicture.h"
#include "mainwindow/forms/PictureChoice.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/mainwindow/WindowTest.h"

#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace mainwindow::testing {

namespace {

using diagram::PictureBackground;
using diagram::PictureFormat;

struct PictureExport : WindowTest {
    frmMain &window = NewWindow();

    PictureExport() { AddNode(window, 300, 300, QStringLiteral("Goal")); }
    // The form will be shown: it is answered by OK (or by Cancel), after `change` of its choice.
    void ExpectForm(PictureFormat format, std::function<void(PictureChoice &)> change = {}, bool ok = true) {
        desktop.ExpectForm<PictureFormArgument>([=](PictureFormArgument &argument) {
            EXPECT_EQ(argument.format, format);
            EXPECT_GT(argument.page.width(), 0);
            if (change) change(argument.choice);
            return ok;
        });
    }
    // Exports to that name, with that row of the dialog chosen, and gives the bytes of the file; none if it
    // isn't there.
    QByteArray Export(const QString &name, int row = 1) {
        desktop.ExpectSaveFile(MapFile(name), row);
        window.SmartMenuXP1_Click(QStringLiteral("mnuFileExportPicture"));
        return QFile::exists(MapFile(name)) ? support::ReadWholeFile(MapFile(name)) : QByteArray();
    }
    QString Said() { return window.findChild<cStatusBar *>(QStringLiteral("staMain"))->Doing(); }
    const support::testing::ShownFileDialog &LastDialog() { return desktop.dialogs.shownFiles.back(); }
};

} // namespace

TEST_F(PictureExport, TheEndingThatIsTypedDecides) {
    EXPECT_TRUE(Export(QStringLiteral("a.wmf")).startsWith("\xD7\xCD\xC6\x9A"));
    EXPECT_TRUE(QFile::exists(MapFile(QStringLiteral("a.emf"))));
    EXPECT_TRUE(Export(QStringLiteral("b.emf")).mid(40).startsWith(" EMF"));
    ExpectForm(PictureFormat::Png);
    EXPECT_TRUE(Export(QStringLiteral("a.PNG")).startsWith("\x89PNG"));
    ExpectForm(PictureFormat::Svg);
    EXPECT_TRUE(Export(QStringLiteral("a.svg"), 2).contains("<svg"));
    ExpectForm(PictureFormat::Pdf);
    EXPECT_TRUE(Export(QStringLiteral("a.pdf")).startsWith("%PDF"));
}

TEST_F(PictureExport, SaysWhereThePictureIsOnceItIsThere) {
    ExpectForm(PictureFormat::Png, {}, false);
    Export(QStringLiteral("a.png"));
    EXPECT_EQ(Said(), QString());
    ExpectForm(PictureFormat::Png);
    Export(QStringLiteral("a.png"));
    EXPECT_EQ(Said(), MapFile(QStringLiteral("a.png")) + QStringLiteral(" was written."));
    Export(QStringLiteral("b.wmf"));
    EXPECT_EQ(Said(), MapFile(QStringLiteral("b.wmf")) + QStringLiteral(" was written."));
}

TEST_F(PictureExport, ANameWithoutAPicturesEndingGetsThatOfItsRow) {
    EXPECT_TRUE(Export(QStringLiteral("plan.v1")).startsWith("\xD7\xCD\xC6\x9A"))
        << "a metafile has any name";
    ExpectForm(PictureFormat::Png);
    EXPECT_TRUE(Export(QStringLiteral("plan.v2"), 2).isEmpty());
    EXPECT_TRUE(QFile::exists(MapFile(QStringLiteral("plan.v2.png"))));
    const QByteArray before = support::ReadWholeFile(MapFile(QStringLiteral("plan.v2.png")));
    desktop.ExpectMessageContaining(QStringLiteral("plan.v2.png already exists"), support::Answer::No);
    AddNode(window, 9000, 300);
    Export(QStringLiteral("plan.v2"), 2);
    EXPECT_EQ(support::ReadWholeFile(MapFile(QStringLiteral("plan.v2.png"))), before);
}

TEST_F(PictureExport, RemembersTheLastFormatSizeAndBackground) {
    ExpectForm(PictureFormat::Png, [](PictureChoice &choice) {
        EXPECT_EQ(choice, PictureChoice());
        choice.bySide = true;
        choice.pixels = 321;
        choice.background = PictureBackground::Transparent;
    });
    const QImage image = QImage::fromData(Export(QStringLiteral("a.png"), 2));
    EXPECT_EQ(std::max(image.width(), image.height()), 321);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    ExpectForm(PictureFormat::Png, [](PictureChoice &choice) {
        EXPECT_TRUE(choice.bySide);
        EXPECT_EQ(choice.pixels, 321);
        EXPECT_EQ(choice.background, PictureBackground::Transparent);
    });
    Export(QStringLiteral("b.png"), 2);
    EXPECT_EQ(LastDialog().filterRow, 2);
    EXPECT_TRUE(LastDialog().filter.startsWith(QStringLiteral("Windows Meta File|*.wmf|PNG")));
}

TEST_F(PictureExport, CancelWritesNothingAndRemembersNothingOfTheForm) {
    document::MarkSaved(window);
    ExpectForm(
        PictureFormat::Svg, [](PictureChoice &choice) { choice.scale = 500; }, false);
    EXPECT_TRUE(Export(QStringLiteral("a.svg"), 3).isEmpty());
    EXPECT_EQ(LoadPictureChoice(), PictureChoice());
    desktop.ExpectSaveFile(QString());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExportPicture"));
    EXPECT_FALSE(window.HasUnsavedWork());
}

TEST_F(PictureExport, ShowsOnlyWhatTheFilterLeaves) {
    diagram::Node &far = AddNode(window, 20000, 300, QStringLiteral("Secret"));
    far.SetHidden(true);
    ExpectForm(PictureFormat::Svg);
    const QByteArray svg = Export(QStringLiteral("a.svg"), 3);
    EXPECT_TRUE(svg.contains("Goal"));
    EXPECT_FALSE(svg.contains("Secret"));
}

// So many texts that the export cannot end before Escape arrives.
TEST_F(PictureExport, EscapeGivesALongOneUpAndNoFileIsWritten) {
    for (int i = 0; i < 30000; ++i)
        AddNode(window, float(i % 200) * 2000, float(i / 200) * 1200,
                QStringLiteral("A text, the %1th").arg(i));
    auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    const EscapeWhenOffered escape(window);
    ExpectForm(PictureFormat::Pdf);
    EXPECT_TRUE(Export(QStringLiteral("a.pdf"), 4).isEmpty());
    EXPECT_EQ(bar->Doing(), QStringLiteral("Exporting the picture was given up."));
    EXPECT_FALSE(QFile::exists(MapFile(QStringLiteral("a.pdf"))));
}

TEST_F(PictureExport, AFolderThatIsGoneIsToldAndLeavesNothing) {
    ExpectForm(PictureFormat::Png);
    desktop.ExpectMessageContaining(QStringLiteral("none"));
    Export(QStringLiteral("none/a.png"), 2);
    EXPECT_FALSE(QFile::exists(MapFile(QStringLiteral("none/a.png"))));
}

TEST(PictureChoiceTest, WhatIsStoredOutOfRangeIsAsUsual) {
    support::testing::ScriptedDesktop desktop;
    PictureChoice choice;
    choice.scale = 5;
    choice.pixels = 999999;
    choice.dotsPerInch = 150;
    choice.background = PictureBackground::White;
    SavePictureChoice(choice);
    const PictureChoice read = LoadPictureChoice();
    EXPECT_EQ(read.scale, 100);
    EXPECT_EQ(read.pixels, PictureChoice().pixels);
    EXPECT_EQ(read.dotsPerInch, 150);
    EXPECT_EQ(read.background, PictureBackground::White);
}

TEST(PictureChoiceTest, AFormatTakesOnlyWhatItHas) {
    PictureChoice choice;
    choice.bySide = true;
    choice.pixels = 500;
    choice.scale = 200;
    choice.dotsPerInch = 300;
    EXPECT_EQ(OptionsOf(choice, PictureFormat::Png).pixels, 500);
    EXPECT_EQ(OptionsOf(choice, PictureFormat::Png).dotsPerInch, 300);
    EXPECT_EQ(OptionsOf(choice, PictureFormat::Svg).pixels, 0);
    EXPECT_EQ(OptionsOf(choice, PictureFormat::Pdf).scale, 2);
}

TEST(PictureForm, OfAPngShowsWhatBecomesOfIt) {
    support::testing::ScriptedDesktop desktop;
    const QLocale former;
    QLocale::setDefault(QLocale::c());
    PictureFormArgument argument{PictureFormat::Png, QSizeF(14400, 7200), {}};
    frmPicture form(argument, nullptr);
    form.show();
    EXPECT_EQ(form.lblSize()->text(), QStringLiteral("960 \u00D7 480 pixels, 25.4 \u00D7 12.7 cm"));
    EXPECT_TRUE(form.txtScale()->isEnabled());
    EXPECT_FALSE(form.txtPixels()->isEnabled());
    form.txtScale()->setFocus();
    form.txtScale()->selectAll();
    QTest::keyClicks(form.txtScale(), QStringLiteral("200"));
    EXPECT_EQ(form.lblSize()->text(), QStringLiteral("1920 \u00D7 960 pixels, 50.8 \u00D7 25.4 cm"));
    QTest::mouseClick(form.optPixels(), Qt::LeftButton);
    EXPECT_TRUE(form.txtPixels()->isEnabled());
    EXPECT_FALSE(form.txtScale()->isEnabled());
    EXPECT_TRUE(form.lblSize()->text().startsWith(QStringLiteral("1600 \u00D7 800 pixels")));
    form.txtDots()->setValue(300);
    form.cboBackground()->setCurrentIndex(2);
    QTest::mouseClick(form.findChild<QPushButton *>(QStringLiteral("cmdOK")), Qt::LeftButton);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    const PictureChoice expected{true, 200, 1600, 300, PictureBackground::Transparent};
    EXPECT_EQ(argument.choice, expected);
    QLocale::setDefault(former);
}

TEST(PictureForm, OfADrawingAsksForScaleAndBackgroundAlone) {
    support::testing::ScriptedDesktop desktop;
    PictureChoice remembered;
    remembered.bySide = true;
    remembered.dotsPerInch = 300;
    for (const PictureFormat format : {PictureFormat::Svg, PictureFormat::Pdf}) {
        PictureFormArgument argument{format, QSizeF(14400, 7200), remembered};
        frmPicture form(argument, nullptr);
        form.show();
        EXPECT_EQ(form.txtPixels(), nullptr);
        EXPECT_EQ(form.txtDots(), nullptr);
        EXPECT_TRUE(form.txtScale()->isEnabled());
        EXPECT_FALSE(form.lblSize()->text().contains(QStringLiteral("pixels")));
        form.txtScale()->setValue(50);
        QTest::keyClick(&form, Qt::Key_Return);
        EXPECT_EQ(argument.choice.scale, 50);
        EXPECT_TRUE(argument.choice.bySide) << "what this format hasn't stays as it was";
        EXPECT_EQ(argument.choice.dotsPerInch, 300);
    }
}

TEST(PictureForm, EscapeChangesNothing) {
    support::testing::ScriptedDesktop desktop;
    PictureFormArgument argument{PictureFormat::Png, QSizeF(100, 100), {}};
    frmPicture form(argument, nullptr);
    form.show();
    form.txtScale()->setValue(50);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_EQ(argument.choice, PictureChoice());
    for (QWidget *control : form.findChildren<QSpinBox *>())
        EXPECT_FALSE(control->accessibleName().isEmpty());
}

} // namespace mainwindow::testing
