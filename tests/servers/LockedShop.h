// SPDX-License-Identifier: MIT
#pragma once

// A shop's database on the suite's PostgreSQL server as a shop sets one up:
// made and seeded by its owner role (the library's tables, the administrator
// "admin" with password "admin", the clerk "banhang" with "123"), locked with
// zolt-server for a desk role, and a login of that role for the desks. Each
// of its roles and its database are its own, dropped with it.

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace zolt::test {

class LockedShop {
public:
    // On the suite's server, or on the one pg-cluster.sh runs in folder.
    explicit LockedShop(const QString &folder = QString());
    ~LockedShop();
    LockedShop(const LockedShop &) = delete;
    LockedShop &operator=(const LockedShop &) = delete;

    // The owner's connection, open: it sets the shop up and checks it.
    QSqlDatabase owner() const;
    // The menu bars "Danh mục" and "Chứng từ", their items and rights columns.
    void addMenus() const;
    // Runs zolt-server lock (or unlock) as the owner, for the shop's desk
    // role or another; its exit code, and what it said on standard error.
    int lock(const QString &command = QStringLiteral("lock"), const QString &deskRole = QString()) const;
    QString said() const { return m_said; }
    // A desk's connection as the desk login, open, by QPSQL or QODBC; removed
    // with the shop.
    QSqlDatabase desk(const QString &driver, const QString &name) const;
    // A role's name of this shop's own, dropped with it.
    QString role(const QString &name) const;
    // Runs statements in the shop's database as the server's superuser.
    void asSuperuser(const QStringList &statements) const;
    QString deskRole() const { return m_desk; }
    QString deskLogin() const { return m_login; }
    QString ownerRole() const { return m_owner; }
    QString database() const { return m_database; }

private:
    QString m_folder, m_id, m_owner, m_desk, m_login, m_database;
    mutable QStringList m_connections;
    mutable QString m_said;
};

} // namespace zolt::test
