// SPDX-License-Identifier: MIT
#pragma once

// The one reading of a statement in the library's dialect, the original
// engine's: text between apostrophes (a doubled apostrophe stays inside),
// text between double quotes, [bracketed] names, #m/d/y# dates, names,
// blanks and symbols; and names between backticks, as MySQL quotes them. Both the rewrite for an engine (DriverSql) and the
// rewrite of a clerk's comparisons read statements through it, so that they
// always agree on where typed text begins and ends.

#include <QList>
#include <QString>

namespace zolt {

enum class SqlPieceKind {
    Space,
    Quoted,        // '…', closed
    Unclosed,      // an apostrophe whose text runs to the end
    DoubleQuoted,  // "…", closed or to the end
    BackQuoted,    // `…`, a MySQL name, closed or to the end
    Bracketed,     // […], closed
    Date,          // #…# holding a date's or time's digits and separators
    Name,          // letters, digits, _ . $
    Symbol,        // anything else, "<>" as one
};

struct SqlPiece {
    SqlPieceKind kind;
    qsizetype begin, end;
};

// The statement's pieces, in order, end to end: together they are the whole text.
QList<SqlPiece> SqlPieces(const QString &sql);

} // namespace zolt
