// SPDX-License-Identifier: MIT
#include "servers/LockedShop.h"

#include "servers/TestServer.h"
#include "TestSupport.h"

#include <zolt/Schema.h>

#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <gtest/gtest.h>

namespace zolt::test {

namespace {

// The server's own administrator: it makes and drops the shop's roles and database.
void asServerAdmin(const QString &folder, const QStringList &statements, const QString &database = QStringLiteral("zolt"))
{
    const QString name = QUuid::createUuid().toString();
    {
        QSqlDatabase admin = addServerDatabase(QStringLiteral("QPSQL"), name, folder);
        admin.setDatabaseName(database);
        EXPECT_TRUE(admin.open()) << admin.lastError().text().toStdString();
        for (const QString &sql : statements) {
            QSqlQuery query(admin);
            EXPECT_TRUE(query.exec(sql)) << sql.toStdString() << ": " << query.lastError().text().toStdString();
        }
    }
    QSqlDatabase::removeDatabase(name);
}

QSqlDatabase connectAs(const QString &folder, const QString &driver, const QString &name, const QString &role,
                       const QString &database)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(driver, name);
    if (driver == QLatin1String("QODBC")) {
        db.setDatabaseName(QStringLiteral("DRIVER={PostgreSQL Unicode};Servername=%1;Port=55432;Database=%2;Username=%3")
                               .arg(folder, database, role));
    } else {
        db.setHostName(folder);
        db.setPort(55432);
        db.setUserName(role);
        db.setDatabaseName(database);
    }
    EXPECT_TRUE(db.open()) << role.toStdString() << ": " << db.lastError().text().toStdString();
    return db;
}

} // namespace

LockedShop::LockedShop(const QString &folder)
    : m_folder(folder.isEmpty() ? ServerFolder() : folder)
    , m_id(QUuid::createUuid().toString(QUuid::Id128).left(12))
    , m_owner(role(QStringLiteral("owner")))
    , m_desk(role(QStringLiteral("desk")))
    , m_login(role(QStringLiteral("counter")))
    , m_database(role(QStringLiteral("shop")))
{
    asServerAdmin(m_folder, {QStringLiteral("CREATE ROLE %1 LOGIN CREATEROLE").arg(m_owner),
                             QStringLiteral("CREATE DATABASE %1 OWNER %2").arg(m_database, m_owner)});
    QSqlDatabase db = connectAs(m_folder, QStringLiteral("QPSQL"), m_owner, m_owner, m_database);
    CreateTables(db);
    SeedTables(db, QStringLiteral("admin"), QStringLiteral("admin"));
    QSqlQuery clerk(db);
    EXPECT_TRUE(clerk.exec(QStringLiteral("INSERT INTO \"user\"(name, \"dec\", idgroup, password) VALUES ('banhang', 'Bán hàng', 8, 1065)")));
}

void LockedShop::addMenus() const
{
    for (const char *sql : {"ALTER TABLE groups ADD COLUMN danhmuc INTEGER DEFAULT 0",
                            "ALTER TABLE groups ADD COLUMN chungtu INTEGER DEFAULT 0",
                            "INSERT INTO menu VALUES (1, 'Danh mục'), (2, 'Chứng từ')",
                            "INSERT INTO submenu VALUES (1, 'Hàng hoá', 1), (2, 'Khách hàng', 1), (3, 'Hoá đơn', 2)"}) {
        QSqlQuery query(owner());
        EXPECT_TRUE(query.exec(QString::fromUtf8(sql))) << sql << ": " << query.lastError().text().toStdString();
    }
}

LockedShop::~LockedShop()
{
    for (const QString &name : m_connections + QStringList{m_owner}) {
        QSqlDatabase::database(name, false).close();
        QSqlDatabase::removeDatabase(name);
    }
    asServerAdmin(m_folder, {QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(m_database),
                             QStringLiteral("DO $$ DECLARE r text; BEGIN FOR r IN SELECT rolname FROM pg_roles WHERE rolname LIKE "
                                            "'%\\_%1' LOOP EXECUTE format('DROP ROLE %I', r); END LOOP; END $$").arg(m_id)});
}

QString LockedShop::role(const QString &name) const
{
    return name + u'_' + m_id;
}

void LockedShop::asSuperuser(const QStringList &statements) const
{
    asServerAdmin(m_folder, statements, m_database);
}

QSqlDatabase LockedShop::owner() const
{
    return QSqlDatabase::database(m_owner, false);
}

int LockedShop::lock(const QString &command, const QString &deskRole) const
{
    const QString role = deskRole.isEmpty() ? m_desk : deskRole;
    QProcess server;
    server.start(QStringLiteral(ZOLT_SERVER),
                 {command, QStringLiteral("postgresql://%1@localhost:55432/%2?host=%3").arg(m_owner, m_database, m_folder),
                  QStringLiteral("--desk-role"), role});
    server.waitForFinished(60000);
    m_said = QString::fromUtf8(server.readAllStandardError());
    if (server.exitCode() == 0 && command == QLatin1String("lock") && role == m_desk)
        asServerAdmin(m_folder, {QStringLiteral("DO $$ BEGIN IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = '%1') THEN "
                                                "CREATE ROLE %1 LOGIN IN ROLE %2; END IF; END $$").arg(m_login, m_desk)});
    return server.exitCode();
}

QSqlDatabase LockedShop::desk(const QString &driver, const QString &name) const
{
    if (!m_connections.contains(name))
        m_connections << name;
    return connectAs(m_folder, driver, name, m_login, m_database);
}

} // namespace zolt::test
