// SPDX-License-Identifier: MIT
#pragma once

// A shop's database as the old platform left it, for the migration tool's
// tests and guide: the library's tables and the host's goods and customers,
// every Vietnamese text in TCVN3 read as Windows-1252, but the goods' labels
// (raw TCVN3 bytes in a BLOB), the customers' names (VNI), their addresses
// (already Unicode) and notes (some of each); the goods' pictures are bytes
// that are no text at all, and their shelves are headings typed for a
// capitals font.

#include <QSqlDatabase>
#include <QString>

namespace zolt::test {

QString Tcvn3Ansi(const QString &text);
QString VniAnsi(const QString &text);

// The Unicode name of the nth item of the goods.
QString GoodsName(int n);
QString Shelf(int n);
QString CustomerName(int n);
QString CustomerNote(int n);

// Fills db (an empty SQLite database) with the shop and its goods; false with the failing statement in *error.
bool MakeLegacyShop(const QSqlDatabase &db, int goods, QString *error);

} // namespace zolt::test
