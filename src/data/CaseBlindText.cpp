// SPDX-License-Identifier: MIT
#include "data/CaseBlindText.h"

#include <QAnyStringView>
#include <QSqlDriver>
#include <QVariant>

#include <sqlite3.h>

namespace zolt {

namespace {

bool sameLetter(QChar a, QChar b)
{
    return a == b || a.toCaseFolded() == b.toCaseFolded();
}

QStringView textOf(sqlite3_value *value)
{
    const auto *units = static_cast<const char16_t *>(sqlite3_value_text16(value));
    return QStringView(units, sqlite3_value_bytes16(value) / 2);
}

// like(pattern, text) and like(pattern, text, escape), as SQLite calls them for LIKE.
void like(sqlite3_context *context, int count, sqlite3_value **values)
{
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            return sqlite3_result_null(context);
    }
    QChar escape;
    if (count == 3) {
        const QStringView given = textOf(values[2]);
        if (given.size() != 1)
            return sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
        escape = given.front();
    }
    sqlite3_result_int(context, CaseBlindLike(textOf(values[0]), textOf(values[1]), escape));
}

int compareNoCase(void *, int leftBytes, const void *left, int rightBytes, const void *right)
{
    return QAnyStringView::compare(QUtf8StringView(static_cast<const char *>(left), leftBytes),
                                   QUtf8StringView(static_cast<const char *>(right), rightBytes), Qt::CaseInsensitive);
}

} // namespace

void RegisterCaseBlindText(const QSqlDatabase &db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!db.isOpen() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return;
    sqlite3 *connection = *static_cast<sqlite3 *const *>(handle.data());
    if (!connection)
        return;
    // In the database's own encoding, so that they take the built-ins' place.
    for (int count : {2, 3})
        sqlite3_create_function(connection, "like", count, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, like, nullptr, nullptr);
    sqlite3_create_collation(connection, "NOCASE", SQLITE_UTF8, nullptr, compareNoCase);
}

bool CaseBlindLike(QStringView pattern, QStringView text, QChar escape)
{
    // Greedy matching that returns to the last "%" on a mismatch.
    qsizetype p = 0, t = 0, resumeP = -1, resumeT = 0;
    while (t < text.size()) {
        if (p < pattern.size()) {
            const QChar c = pattern[p];
            if (c == u'%' && c != escape) {
                resumeP = ++p;
                resumeT = t;
                continue;
            }
            const bool escaped = c == escape && !escape.isNull() && p + 1 < pattern.size();
            const QChar wanted = escaped ? pattern[p + 1] : c;
            if ((wanted == u'_' && !escaped) || sameLetter(wanted, text[t])) {
                p += escaped ? 2 : 1;
                ++t;
                continue;
            }
        }
        if (resumeP < 0)
            return false;
        p = resumeP;
        t = ++resumeT;
    }
    while (p < pattern.size() && pattern[p] == u'%' && pattern[p] != escape)
        ++p;
    return p == pattern.size();
}

} // namespace zolt
