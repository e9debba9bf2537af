// SPDX-License-Identifier: MIT
// Widget tests run in a QApplication on the offscreen platform; tests of the
// library's core need only a QCoreApplication (the SQL drivers are plugins).
#ifdef ZOLT_TEST_WIDGETS
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application app(argc, argv);
    Application::setApplicationName(QStringLiteral("ZOLT Tests"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
