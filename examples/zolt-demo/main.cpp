// SPDX-License-Identifier: MIT
// Bán hàng ZOLT: a small sales application that uses the ZOLT library for its
// logon and its messages.
#include "DemoDatabase.h"
#include "MainWindow.h"
#include "Tour.h"

#include <zolt/Error.h>
#include <zolt/clsLogon.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTranslator>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

// The library's catalogue and the sample's own for the language ("en"), the
// library's from where the build leaves it or where it is installed beside
// this program. False when either is missing.
bool loadTranslations(const QString &language)
{
    static QTranslator library, sample;
    const QStringList folders = {QStringLiteral(ZOLT_TRANSLATIONS_BUILD_DIR),
                                 QCoreApplication::applicationDirPath() + QStringLiteral("/../share/zolt/translations")};
    const bool libraryFound = std::any_of(folders.begin(), folders.end(), [&](const QString &folder) {
        return library.load(QStringLiteral("zolt_") + language, folder);
    });
    if (!libraryFound || !sample.load(QStringLiteral(":/translations/zolt-demo_") + language))
        return false;
    QCoreApplication::installTranslator(&library);
    QCoreApplication::installTranslator(&sample);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zolt-demo"));

    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("A small sales application on the ZOLT library."));
    options.addHelpOption();
    const QCommandLineOption database(QStringLiteral("database"),
                                      QStringLiteral("The database: an SQLite file (created when missing), "
                                                     "postgresql://user@host:port/dbname (?host=/socket/folder), "
                                                     "or odbc:DATA-SOURCE. A database without the tables gets them."),
                                      QStringLiteral("database"));
    const QCommandLineOption tour(QStringLiteral("tour"),
                                  QStringLiteral("Walk through the application by script and save a picture of each step in folder."),
                                  QStringLiteral("folder"));
    const QCommandLineOption rows(QStringLiteral("rows"),
                                  QStringLiteral("How many goods a new database gets (3000 by default)."),
                                  QStringLiteral("n"), QStringLiteral("3000"));
    const QCommandLineOption prepare(QStringLiteral("prepare"),
                                     QStringLiteral("Make the database's tables and samples when missing, then stop: run by "
                                                    "a server's owner before zolt-server locks it."));
    options.addOption(database);
    options.addOption(tour);
    options.addOption(rows);
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Show the library's dialogs and the sample in this language (\"en\" for English)."),
                                      QStringLiteral("language"));
    options.addOption(prepare);
    options.addOption(language);
    options.process(app);
    if (options.isSet(language) && !loadTranslations(options.value(language))) {
        std::fprintf(stderr, "no translation for %s\n", qPrintable(options.value(language)));
        return 2;
    }
    QApplication::setApplicationDisplayName(QCoreApplication::translate("main", "Bán hàng ZOLT"));

    QString path = options.value(database);
    if (path.isEmpty())
        path = QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
                   .filePath(QStringLiteral("zolt-demo.db"));
    QString error;
    bool rowsRead = false;
    const int goods = options.value(rows).toInt(&rowsRead);
    if (!rowsRead || goods < 0) {
        std::fprintf(stderr, "--rows wants a whole number of goods\n");
        return 2;
    }
    QSqlDatabase db = openDemoDatabase(path, goods, error);
    if (!db.isOpen()) {
        const QString message = QCoreApplication::translate("main", "Không mở được dữ liệu %1:\n%2").arg(path, error);
        std::fprintf(stderr, "%s\n", qPrintable(message));
        // Without a display nobody could answer a message box.
        const QString platform = QGuiApplication::platformName();
        if (!options.isSet(tour) && platform != QLatin1String("offscreen") && platform != QLatin1String("minimal"))
            QMessageBox::critical(nullptr, QString(), message);
        return 1;
    }
    if (options.isSet(prepare))
        return 0;

    std::unique_ptr<Tour> walk;
    if (options.isSet(tour)) {
        walk = std::make_unique<Tour>(options.value(tour));
        walk->start();
    }

    zolt::clsLogon logon;
    for (;;) {
        const qint32 user = logon.ShowLogon(db);
        if (user == 0)
            return walk ? 1 : 0;
        MainWindow window(db, user, logon);   // menus as the user's rights are now
        window.show();
        const int result = app.exec();
        if (!window.logonAgain())
            return walk && !walk->finished() ? 1 : result;
    }
}
