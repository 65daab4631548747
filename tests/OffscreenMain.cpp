#include <gtest/gtest.h>
#include <QGuiApplication>

// What is painted must not depend on a display, where there is one.
int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
