// SPDX-License-Identifier: MIT
// Writes the legacy shop into an SQLite file, for the migration guide and for
// trying zolt-migrate by hand: legacy_shop FILE [GOODS].

#include "tools/LegacyShop.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2)
        return QTextStream(stderr) << "usage: legacy_shop FILE [GOODS]\n", 1;
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    db.setDatabaseName(args[1]);
    QString error;
    if (!db.open() || !zolt::test::MakeLegacyShop(db, args.value(2, QStringLiteral("30")).toInt(), &error))
        return QTextStream(stderr) << error << db.lastError().text() << '\n', 1;
    return 0;
}
