// SPDX-License-Identifier: MIT
// Widget tests run in a QApplication on the offscreen platform; tests of the
// library's core need only a QCoreApplication (the SQL drivers are plugins).
// A Qt warning that a test does not expect fails it.
#ifdef ZOLT_TEST_WIDGETS
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

#include <QTimer>

#include <gtest/gtest.h>

namespace {

// A wait for a dialog that a test set up and that never came ends with the
// test: else it would act on the next test's dialog, with the first test's
// variables long gone.
class EndWaits : public ::testing::EmptyTestEventListener {
    void OnTestEnd(const ::testing::TestInfo &) override
    {
        for (QTimer *wait : qApp->findChildren<QTimer *>(QStringLiteral("whenModalShows"), Qt::FindDirectChildrenOnly))
            delete wait;
    }
};

// What the offscreen platform says of what it cannot do, and of the test
// machine's session; none of it is the library's.
bool platformNoise(const QString &message)
{
    return message.startsWith(QLatin1String("This plugin does not support"))
        || message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
}

void failOnWarning(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg || platformNoise(message)) {
        if (type != QtDebugMsg || !context.category || qstrcmp(context.category, "default") != 0)
            std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
        return;
    }
    ADD_FAILURE() << "Qt warning: " << message.toStdString()
                  << (context.category ? std::string(" (") + context.category + ")" : std::string());
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(failOnWarning);
    Application app(argc, argv);
    Application::setApplicationName(QStringLiteral("ZOLT Tests"));
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new EndWaits);
    return RUN_ALL_TESTS();
}
