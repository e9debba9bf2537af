// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QString>

// Opens the demo's database: an SQLite file at a path, a PostgreSQL server
// (postgresql://user@host/dbname) or an ODBC data source (odbc:NAME). A new
// one gets the library's tables, from the SQL the library ships for its
// engine, and the sample sales data (that many goods). On failure the
// returned database is not open and error says why.
QSqlDatabase openDemoDatabase(const QString &database, int goods, QString &error);
