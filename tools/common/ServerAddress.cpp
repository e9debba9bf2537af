// SPDX-License-Identifier: MIT
#include "ServerAddress.h"

#include <QUrl>
#include <QUrlQuery>

namespace zolt::tools {

ServerKind ServerKindOf(const QString &address)
{
    const QString scheme = QUrl(address).scheme();
    if (scheme == QLatin1String("postgresql") || scheme == QLatin1String("postgres"))
        return ServerKind::PostgreSQL;
    if (scheme == QLatin1String("mysql") || scheme == QLatin1String("mariadb"))
        return ServerKind::MariaDB;
    return ServerKind::None;
}

QSqlDatabase AddServerDatabase(const QString &address, const QString &connectionName)
{
    const ServerKind kind = ServerKindOf(address);
    if (kind == ServerKind::None)
        return {};
    const QUrl url(address);
    const QString socketFolder = QUrlQuery(url).queryItemValue(QStringLiteral("host"));
    QSqlDatabase db = QSqlDatabase::addDatabase(
        kind == ServerKind::PostgreSQL ? QStringLiteral("QPSQL") : QStringLiteral("QMYSQL"), connectionName);
    // PostgreSQL's client takes a folder for a host; MariaDB's the socket itself.
    if (kind == ServerKind::PostgreSQL && !socketFolder.isEmpty())
        db.setHostName(socketFolder);
    else
        db.setHostName(url.host());
    if (kind == ServerKind::MariaDB && !socketFolder.isEmpty())
        db.setConnectOptions(QStringLiteral("UNIX_SOCKET=%1/mysqld.sock").arg(socketFolder));
    if (url.port() > 0)
        db.setPort(url.port());
    db.setUserName(url.userName());
    db.setPassword(url.password());
    db.setDatabaseName(url.path().mid(1));
    return db;
}

QString ShownAddress(const QString &address)
{
    return QUrl(address).toString(QUrl::RemovePassword);
}

} // namespace zolt::tools
