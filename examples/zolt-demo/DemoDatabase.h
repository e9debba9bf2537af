// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QString>

// Opens the demo's SQLite database at path, creating it with the library's
// tables and the sample sales data (that many goods) when it is new. On
// failure the returned database is not open and error says why.
QSqlDatabase openDemoDatabase(const QString &path, int goods, QString &error);
