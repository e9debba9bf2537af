// SPDX-License-Identifier: MIT
#pragma once

// An Access file as a Qt SQL database, read only, so that the tool reads it
// as it reads any other source: its tables, their records and keys, and the
// three statements the tool asks of a source, SELECT COUNT(*), SELECT * and
// SELECT of named columns, each FROM one table. Registered as "ZOLTACCESS";
// the connect option CODEPAGE=n reads Access 97 text in that code page.

#include "AccessFile.h"

#include <QSqlDriver>

namespace zolt::migrate {

class AccessDriver : public QSqlDriver {
public:
    static inline const QString Name = QStringLiteral("ZOLTACCESS");
    // Makes the driver known to QSqlDatabase (once).
    static void Register();

    explicit AccessDriver(QObject *parent = nullptr);

    bool hasFeature(DriverFeature feature) const override;
    bool open(const QString &db, const QString &user, const QString &password, const QString &host, int port,
              const QString &options) override;
    void close() override;
    QSqlResult *createResult() const override;
    QStringList tables(QSql::TableType type) const override;
    QSqlRecord record(const QString &table) const override;
    QSqlIndex primaryIndex(const QString &table) const override;
    QString escapeIdentifier(const QString &identifier, IdentifierType type) const override;

    // The indexes of a table, its primary key among them.
    QList<AccessIndex> indexes(const QString &table) const;
    // What the file holds that could not be read.
    QStringList unreadable() const;
    const AccessFile &file() const { return m_file; }

private:
    AccessFile m_file;
};

} // namespace zolt::migrate
