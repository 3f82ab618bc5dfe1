#include <QApplication>

#include <gtest/gtest.h>

/// No test needs a screen, and none may open a window on that of the person who runs it.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
