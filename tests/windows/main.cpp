#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // A test needs no screen, whoever starts it.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("QD-W8"));
    return RUN_ALL_TESTS();
}
