// SPDX-License-Identifier: MIT
#pragma once

// Text compared as the original engine compared it, without regard to case,
// Vietnamese letters included ("ĐỖ" equals "đỗ", "bánh%" finds "Bánh quy"),
// and for a clerk's search also without regard to diacritics (TextFold).
// PostgreSQL gets it from its citext columns and the functions of the shipped
// schema; an SQLite connection needs the comparisons registered on its handle.

#include <QSqlDatabase>

namespace zolt {

// On an SQLite connection, replaces LIKE and the collation NOCASE (of text
// columns declared COLLATE NOCASE) by case-blind comparisons of the whole of
// Unicode (SQLite's own fold only ASCII letters), and adds their accent-blind
// counterparts: the function zolt_bare_like(text, pattern) and the collation
// ZOLT_BARE. Decomposed text compares as if composed. Other connections are
// left alone.
void RegisterCaseBlindText(const QSqlDatabase &db);

} // namespace zolt
