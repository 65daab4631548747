#include "dialogs/clsCompactPath.h"

#include <gtest/gtest.h>
#include <QFontMetrics>

namespace dialogs::testing {

class Compacted : public ::testing::Test {
protected:
    int Width(const QString &text) { return metrics.horizontalAdvance(text); }
    QFontMetrics metrics{QFont()};
};

TEST_F(Compacted, AsManyFoldersAsFitAreKept) {
    const QString path = "/home/anna/plans/2004/harbour/map.map";
    EXPECT_EQ(CompactPath(path, metrics, Width(path)), path);
    EXPECT_EQ(CompactPath(path, metrics, Width(path) - 1), "/home/anna/plans/2004/.../map.map");
    EXPECT_EQ(CompactPath(path, metrics, Width("/home/.../map.map")), "/home/.../map.map");
    EXPECT_EQ(CompactPath(path, metrics, Width(".../map.map")), ".../map.map");
    const QString windows = "C:\\Users\\Anna\\Documents\\Plans of the year\\map.map";
    EXPECT_EQ(CompactPath(windows, metrics, Width("C:\\Users\\...\\map.map")), "C:\\Users\\...\\map.map");
}

TEST_F(Compacted, ANameThatIsTooLongIsCutInItsMiddle) {
    const QString name = QString(80, 'n') + ".map";
    for (const QString &path : {"/home/" + name, name}) {
        const QString shown = CompactPath(path, metrics, Width("nnnnnnnnnnnn"));
        EXPECT_LE(Width(shown), Width("nnnnnnnnnnnn"));
        EXPECT_TRUE(shown.startsWith('n')) << shown.toStdString();
        EXPECT_TRUE(shown.endsWith('p')) << shown.toStdString();
    }
    EXPECT_EQ(CompactPath("", metrics, 100), "");
    EXPECT_EQ(CompactPath("/a\nb/c.map", metrics, 1000), "/a b/c.map");
}

TEST_F(Compacted, AnOverlongPathIsShortened) {
    QString path;
    for (int i = 0; i < 200'000; ++i) path += "/ab";
    path += "/notes.txt";
    EXPECT_EQ(CompactPath(path, metrics, Width("/ab/.../notes.txt")), "/ab/.../notes.txt");
    EXPECT_LT(TipOf(path).size(), 2000);
    EXPECT_EQ(WithoutMiddle("abcdef", 6), "abcdef");
    EXPECT_EQ(WithoutMiddle("abcdefg", 4), "ab...fg");
}

TEST_F(Compacted, ALabelKeepsTheWholePathAndFollowsItsWidth) {
    PathLabel label(nullptr);
    const QString path = "/home/anna/R&D/" + QString(60, 'x') + "/<b>map<b>.map";
    clsCompactPath().CompactPathIntoControl(path, label);
    label.resize(2 * Width(path), 30);
    label.show();
    EXPECT_EQ(label.text(), path);
    label.resize(Width("/home/anna/R&D/.../<b>map<b>.map") + 40, 30);
    EXPECT_EQ(label.text(), "/home/anna/R&D/.../<b>map<b>.map");
    EXPECT_EQ(label.Tag(), path);
    EXPECT_EQ(label.accessibleDescription(), path);
    EXPECT_LT(label.minimumSizeHint().width(), Width(path) / 2);
    clsCompactPath().CompactPathIntoControl("", label);
    EXPECT_EQ(label.text(), "");
    EXPECT_EQ(label.toolTip(), "");
}

} // namespace dialogs::testing
