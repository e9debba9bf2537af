// SPDX-License-Identifier: MIT
#pragma once

// Text compared as the original engine compared it: without regard to case,
// Vietnamese letters included ("ĐỖ" equals "đỗ", "bánh%" finds "Bánh quy").
// PostgreSQL gets it from its citext columns; an SQLite connection needs the
// comparisons registered on its handle.

#include <QSqlDatabase>
#include <QStringView>

namespace zolt {

// On an SQLite connection, replaces LIKE and the collation NOCASE (of text
// columns declared COLLATE NOCASE) by case-blind comparisons of the whole of
// Unicode; SQLite's own fold only ASCII letters. Other connections are left alone.
void RegisterCaseBlindText(const QSqlDatabase &db);

// LIKE without regard to case: "%" any run of characters, "_" any one, the
// escape character (when not null) makes the next one plain.
bool CaseBlindLike(QStringView pattern, QStringView text, QChar escape = QChar());

} // namespace zolt
