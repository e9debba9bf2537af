// SPDX-License-Identifier: MIT
// The rewrite of #date# literals: quoted text comes out as it went in (but
// for a doubled double quote inside apostrophes, which stands for one), and
// text without a "#" or such a pair is not touched at all.
#include "FuzzInput.h"

#include "core/database/Database.h"

using namespace zolt;

namespace {

// The quoted texts of a statement, in order. A [bracketed] or `quoted` name
// is a name whatever it holds, an apostrophe too.
QStringList quoted(const QString &sql)
{
    QStringList found;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar q = sql[i];
        if (q == u'`' || (q == u'[' && sql.indexOf(u']', i + 1) > 0)) {
            const qsizetype close = sql.indexOf(q == u'`' ? u'`' : u']', i + 1);
            i = close < 0 ? sql.size() : close;
            continue;
        }
        if (q != u'\'' && q != u'"')
            continue;
        qsizetype end = i + 1;
        while (end < sql.size() && !(sql[end] == q && !(end + 1 < sql.size() && sql[end + 1] == q)))
            end += sql[end] == q ? 2 : 1;
        found << sql.mid(i, end - i + 1);
        i = end;
    }
    return found;
}

// Quoted text as the database stores it.
QString stored(const QString &quotedText)
{
    return quotedText.startsWith(u'\'') ? QString(quotedText).replace(QStringLiteral("\"\""), QStringLiteral("\""))
                                        : quotedText;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString sql = fuzz::texts(data, size, 1).first();
    const QString rewritten = RewriteDateLiterals(sql);
    if (!sql.contains(u'#') && !sql.contains(QStringLiteral("\"\"")))
        fuzz::check(rewritten == sql, "text without a date literal changed");
    const QStringList before = quoted(sql);
    const QStringList after = quoted(rewritten);
    for (const QString &text : before)
        fuzz::check(after.contains(stored(text)), "quoted text changed");
    return 0;
}
