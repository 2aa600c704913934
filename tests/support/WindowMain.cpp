#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Off screen unless told otherwise: the tests need no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    return RUN_ALL_TESTS();
}
