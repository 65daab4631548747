// The icons that are painted while the program is built.
#include "mainwindow/icons/ReadyIcons.h"

#include "mainwindow/icons/Icons.h"
#include "mainwindow/look/Look.h"
#include "mainwindow/look/LookPictures.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/menus/Toolbar.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QIcon>

namespace mainwindow {

namespace {

constexpr int kSide = 20;

void ExpectReady(const QString &name, int side) {
    for (const bool dark : {false, true})
        for (const bool faded : {false, true})
            EXPECT_FALSE(FindReadyIcon(name, {side, dark, faded}).isNull())
                << qPrintable(name) << ' ' << side;
}

QByteArray Drawing(const QString &name) {
    (void)Icon(name).pixmap(1, 1); // registers the resources
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(ReadyIcons, LookLikeTheirDrawings) {
    ASSERT_FALSE(ReadyIcons().empty());
    for (const ReadyIcon &icon : ReadyIcons()) {
        const QString name = QLatin1String(icon.name);
        const QByteArray drawing = Drawing(name);
        ASSERT_FALSE(drawing.isEmpty()) << icon.name;
        EXPECT_EQ(FindReadyIcon(name, icon.look), PaintedIcon(drawing, icon.look))
            << icon.name << ' ' << icon.look.side << (icon.look.dark ? " dark" : " light")
            << (icon.look.faded ? " faded" : "");
    }
}

TEST(ReadyIcons, AreWhatIconsShow) {
    const QImage shown = Icon(QStringLiteral("save")).pixmap(kSide, kSide).toImage();
    EXPECT_EQ(shown, FindReadyIcon(QStringLiteral("save"), {kSide, false, false}));
    const QIcon::Mode off = QIcon::Disabled;
    const QImage faded = Icon(QStringLiteral("save")).pixmap(QSize(kSide, kSide), off).toImage();
    EXPECT_EQ(faded, FindReadyIcon(QStringLiteral("save"), {kSide, false, true}));
}

TEST(ReadyIcons, AreThereForEachButtonOfTheBars) {
    for (const auto &rows : {MainButtons(), FormatButtons()})
        for (const ButtonRow &row : rows)
            if (row.style != ButtonStyle::Separator) ExpectReady(QLatin1String(row.tag), kSide);
    for (const char *key : ViewButtons())
        if (*key) ExpectReady(QLatin1String(FindCommand(QLatin1String(key))->image), kSide);
    ExpectReady(QStringLiteral("filter"), kSide);
    for (const LookRow &row : LookRows())
        ExpectReady(QLatin1String(row.image), IsColour(row.what) ? 15 : kSide);
}

TEST(ReadyIcons, OfOtherNamesAndSidesAreNotThere) {
    EXPECT_TRUE(FindReadyIcon(QStringLiteral("save"), {kSide + 1, false, false}).isNull());
    EXPECT_TRUE(FindReadyIcon(QStringLiteral("none"), {kSide, false, false}).isNull());
    EXPECT_TRUE(FindReadyIcon({}, {}).isNull());
}

} // namespace mainwindow
