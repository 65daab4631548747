// That the window's own controls paint what they hold: pictures with and without it are compared.
#include "mainwindow/controls/cProgressOnStatusBar.h"
#include "mainwindow/controls/cStatusBar.h"
#include "mainwindow/controls/FontSamples.h"
#include "mainwindow/controls/TickBox.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/menus/CommandSearch.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QPainter>
#include <QStandardItemModel>
#include <QTest>

namespace mainwindow::testing {

namespace {

// The smallest rectangle around the pixels in which the two pictures, of one size, differ.
QRect Difference(const QImage &a, const QImage &b) {
    EXPECT_EQ(a.size(), b.size());
    QRect found;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) found |= QRect(x, y, 1, 1);
    return found;
}

// A row of a list with that text, painted by the delegate in a font.
QImage Row(const QAbstractItemDelegate &delegate, const QString &text, const QFont &font) {
    QStandardItemModel model;
    model.appendRow(new QStandardItem(text));
    QImage image(600, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.font = font;
    option.fontMetrics = QFontMetrics(font);
    option.state = QStyle::State_Enabled;
    delegate.paint(&painter, option, model.index(0, 0));
    return image;
}

class Painted : public WindowTest {};

} // namespace

TEST_F(Painted, AClosedFilterShowsTheNamesThatAreTicked) {
    frmMain &window = NewWindow();
    TickBox &box = window.ssDBGroups();
    const QImage before = box.grab().toImage();
    box.SetText(QStringLiteral("Marketing"));
    const QRect changed = Difference(before, box.grab().toImage());
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_TRUE(box.rect().contains(changed));
    box.SetText(QString());
    const QImage empty = box.grab().toImage();
    EXPECT_FALSE(Difference(empty, QImage(empty.size(), empty.format())).isEmpty());
    EXPECT_NE(empty.pixelColor(0, box.height() / 2), empty.pixelColor(box.width() / 2, box.height() / 2))
        << "its frame is there without a text";
}

TEST_F(Painted, TheListOfFoundCommandsShowsCaptionsAtTheLeftAndKeysAtTheRight) {
    frmMain &window = NewWindow();
    Press(window, QStringLiteral("Ctrl+Shift+P"));
    QTest::keyClicks(&window.Search(), QStringLiteral("select all"));
    ProcessEvents();
    auto *list = qobject_cast<QAbstractItemView *>(QApplication::activePopupWidget());
    ASSERT_TRUE(list);
    const QAbstractItemModel &model = *list->model();
    QStringList captions;
    for (int row = 0; row < model.rowCount(); ++row) captions << model.index(row, 0).data().toString();
    ASSERT_GE(captions.size(), 2) << captions.join(u'|').toStdString();
    const auto picture = [&](int row) {
        const QRect at = list->visualRect(model.index(row, 0));
        list->setCurrentIndex({});
        return list->viewport()->grab(at).toImage();
    };
    const QImage first = picture(0), second = picture(1);
    const QRect differs = Difference(first, second);
    EXPECT_LT(differs.left(), first.width() / 2) << "captions";
    EXPECT_GT(differs.right(), first.width() / 2) << "keys";
    window.Search().clear();
}

TEST_F(Painted, AFontIsShownByItsNameInItself) {
    const QFont own(QFontDatabase::systemFont(QFontDatabase::GeneralFont).family(), 10);
    const FontSamples samples;
    const QImage blank = Row(samples, QString(), own);
    const auto width = [&](const QFont &font) {
        return Difference(blank, Row(samples, own.family(), font)).width();
    };
    QFont larger(own);
    larger.setPointSizeF(20);
    // The sample is somewhat larger than the list's own font, and grows with it.
    const int plain = QFontMetrics(own).boundingRect(own.family()).width();
    EXPECT_GT(width(own), plain);
    EXPECT_LT(width(own), plain * 3 / 2);
    EXPECT_NEAR(double(width(larger)) / width(own), 2, 0.3);
}

TEST_F(Painted, AFontOfSignsShowsThemInItselfBehindItsNameInTheListsOwnFont) {
    const QStringList families = QFontDatabase::families().filter(QStringLiteral("Symbol"));
    if (families.isEmpty()) GTEST_SKIP() << "no font of signs is installed";
    const QString &family = families.first();
    const QFont own(QFontDatabase::systemFont(QFontDatabase::GeneralFont).family(), 10);
    QFont font(own);
    font.setFamilies({family, own.family()});
    font.setPointSizeF(11.5);
    const QString signs = QFontDatabase::writingSystemSample(QFontDatabase::writingSystems(family).last());
    QImage expected = Row(FontSamples(), QString(), own);
    QPainter painter(&expected);
    painter.setFont(own);
    painter.drawText(expected.rect().adjusted(6, 0, -6, 0), Qt::AlignVCenter | Qt::TextSingleLine, family);
    const int behind = 6 + QFontMetrics(own).horizontalAdvance(family) + 12;
    painter.setFont(font);
    painter.drawText(expected.rect().adjusted(behind, 0, -6, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                     signs);
    painter.end();
    EXPECT_TRUE(Difference(expected, Row(FontSamples(), family, own)).isEmpty());
}

TEST_F(Painted, IconsFollowADarkThemeButTheProgramsOwnDoesNot) {
    const auto pictures = [] {
        return std::pair{Icon(QStringLiteral("save")).pixmap(32, 32).toImage(),
                         ProgramIcon().pixmap(32, 32).toImage()};
    };
    const auto [icon, program] = pictures();
    const QPalette light = QApplication::palette();
    QPalette dark = light;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    const auto [darkIcon, darkProgram] = pictures();
    QApplication::setPalette(light);
    EXPECT_NE(darkIcon, icon);
    EXPECT_EQ(darkProgram, program);
}

TEST_F(Painted, AProgressBarThatMovesIntoTheStatusBarStaysAsVisibleAsItWas) {
    frmMain &window = NewWindow();
    cStatusBar &status = *window.findChild<cStatusBar *>();
    for (const bool shown : {true, false}) {
        QWidget elsewhere;
        auto *bar = new cProgressBar(&elsewhere);
        bar->setVisible(shown);
        cProgressOnStatusBar().SetProgressBar(*bar, status);
        EXPECT_EQ(bar->parentWidget(), &status);
        EXPECT_EQ(!bar->isHidden(), shown);
        const QWidget *panel = status.Panel(QStringLiteral("PROGRESS"));
        EXPECT_EQ(bar->x(), panel->x() + 3);
        EXPECT_EQ(bar->y(), 3);
        delete bar;
    }
}

} // namespace mainwindow::testing
