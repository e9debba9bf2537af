// SPDX-License-Identifier: MIT
// Writes from a process of its own, for the tests that race two writers, kill
// one, or write without rights:
//   writer_tool set ROOT KEY NAME VALUE    a registry value; prints the status
//   writer_tool loop ROOT KEY NAME COUNT   "NAME:i:<1 MiB>:end" COUNT times
//   writer_tool dsn PREFIX COUNT           registers data sources PREFIX0..
//   writer_tool ini FILE PREFIX COUNT      keys PREFIX0.. in section [S] of FILE
//   writer_tool desk FOLDER SCHEMA PREFIX COUNT
//                                          a desk on the suite's server in FOLDER
//                                          (MariaDB's when its socket is there, else
//                                          PostgreSQL's): options and users PREFIX0..
//                                          in SCHEMA (MariaDB: the database)
//   writer_tool refuse FOLDER SCHEMA NAME COUNT
//                                          a desk refusing NAME's logon COUNT times
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/logon/LogonGuard.h"
#include "core/platform/IniFile.h"
#include "core/platform/Registry.h"
#include "servers/TestServer.h"

#include <zolt/clsRegistry.h>

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const QString command = args.value(1);
    if (command == QLatin1String("dsn")) {
        for (int i = 0; i < args.value(3).toInt(); ++i)
            zolt::clsRegistry().Create_DSN(args.value(2) + QString::number(i), QStringLiteral("d"),
                                           QStringLiteral("db"), QStringLiteral("srv"), QStringLiteral("SQL Server"));
        return 0;
    }
    if (command == QLatin1String("desk") || command == QLatin1String("refuse")) {
        const bool mariaDb = QFile::exists(args.value(2) + QStringLiteral("/mysqld.sock"));
        QSqlDatabase db = zolt::test::addServerDatabase(mariaDb ? QStringLiteral("QMYSQL") : QStringLiteral("QPSQL"),
                                                        QStringLiteral("desk"), args.value(2));
        if (mariaDb)
            db.setDatabaseName(args.value(3));
        if (!db.open())
            return 1;
        zolt::SetCurrentConnection(db);
        if (!mariaDb)
            zolt::Execute(QStringLiteral("SET search_path TO %1, public").arg(args.value(3)));
        if (command == QLatin1String("refuse")) {
            for (int i = 0; i < args.value(5).toInt(); ++i)
                zolt::CountRefusal(args.value(4), zolt::LogonLimits{5, 30, 900, 0});
            return 0;
        }
        for (int i = 0; i < args.value(5).toInt(); ++i) {
            const QString name = args.value(4) + QString::number(i);
            zolt::SaveOption(QStringLiteral("Kho"), name, QStringLiteral("giá trị ") + name, QString(), 0);
            zolt::Execute(QStringLiteral("Insert Into [User](Name,[Dec],IdGroup,[Password]) Values('%1','Nhân viên %1',8,1065)").arg(name));
        }
        return 0;
    }
    if (command == QLatin1String("ini")) {
        for (int i = 0; i < args.value(4).toInt(); ++i) {
            if (!zolt::WriteProfileString(QStringLiteral("S"), args.value(3) + QString::number(i),
                                          QString::number(i), args.value(2)))
                return 1;
        }
        return 0;
    }
    const qint32 root = qint32(args.value(2).toLongLong(nullptr, 0));
    const QString key = args.value(3);
    const QString name = args.value(4);
    if (command == QLatin1String("set")) {
        std::printf("%d\n", zolt::clsRegistry().WriteRegEdit(root, key, name, args.value(5)));
        return 0;
    }
    const QString padding(1 << 20, QLatin1Char('x'));
    for (int i = 0; i < args.value(5).toInt(); ++i) {
        const QString value = QStringLiteral("%1:%2:%3:end").arg(name).arg(i).arg(padding);
        if (zolt::RegSetValue(root, key, name, zolt::RegText(value)) != 0)
            return 1;
    }
    return 0;
}
