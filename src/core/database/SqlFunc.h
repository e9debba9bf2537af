// SPDX-License-Identifier: MIT
#pragma once

// SQL literals and the growing of INSERT and UPDATE statements one column at a time.

#include <QString>
#include <QVariant>

namespace zolt {

// Date literals are written between "#"; a build for a database that wants
// them between apostrophes turns this on. Nothing in the library does.
extern bool DateQuoteFlag;

// The value as text with every apostrophe and every double quote doubled.
QString FixQuote(const QVariant &value);

// A literal by value kind: 3 number, 8 date, 10 text (with one blank before the
// closing apostrophe); "1" for any value or kind that does not fit.
QString SqlQuote(const QString &value, qint32 kind);

// Adds a column and its value to "Insert Into T(A,B) Values(x,y)".
QString AddValues(const QString &sql, const QString &column, const QString &value);

// Adds "column=value," right after "SET " of "Update T Set A=x Where ...".
QString AddSet(const QString &sql, const QString &column, const QString &value);

// A value that AddValues or AddSet wrote is stored with the one blank their
// literal adds: the stored text of what was typed, and the typed text of
// what is stored (a value stored otherwise, without the blank, is kept whole).
QString StoredWithBlank(const QString &typed);
QString WithoutAddedBlank(const QString &stored);

// A literal by type code: "N" number, "D" date, "S" or "" text, "LR" text
// followed by "%", "LL" and "LA" text between "%"; "" for other codes.
QString SqlValue(const QVariant &value, const QString &code);

} // namespace zolt
