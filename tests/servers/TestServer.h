// SPDX-License-Identifier: MIT
#pragma once

// How the test and benchmark programs reach the servers that pg-cluster.sh
// and mariadb-cluster.sh start in a folder each: their sockets there, user and
// database "zolt", and for PostgreSQL the ODBC data source "ZoltTest" in that
// folder's odbc.ini.

#include <QFile>
#include <QSqlDatabase>
#include <QString>

namespace zolt::test {

// A connection (not yet open) to the server in folder: PostgreSQL directly
// (QPSQL) or through unixODBC (QODBC), or MariaDB (QMYSQL).
inline QSqlDatabase addServerDatabase(const QString &driver, const QString &name, const QString &folder)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(driver, name);
    if (driver == QLatin1String("QMYSQL")) {
        db.setConnectOptions(QStringLiteral("UNIX_SOCKET=%1/mysqld.sock").arg(folder));
        db.setUserName(QStringLiteral("zolt"));
        db.setDatabaseName(QStringLiteral("zolt"));
    } else if (driver == QLatin1String("QODBC")) {
        qputenv("ODBCINI", QFile::encodeName(folder + QStringLiteral("/odbc.ini")));
        db.setDatabaseName(QStringLiteral("ZoltTest"));
    } else {
        db.setHostName(folder);
        db.setPort(55432);
        db.setUserName(QStringLiteral("zolt"));
        db.setDatabaseName(QStringLiteral("zolt"));
    }
    return db;
}

} // namespace zolt::test
