// SPDX-License-Identifier: MIT
#include "core/database/SqlLexer.h"

namespace zolt {

namespace {

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'$';
}

bool isDateCharacter(QChar c)
{
    return c.isDigit() || c == u'/' || c == u':' || c.isSpace();
}

// Where the text quoted from i ends (past its closing quote, a doubled quote
// staying inside); -1 when it runs to the end unclosed.
qsizetype quoteEnd(const QString &sql, qsizetype i)
{
    const QChar quote = sql.at(i);
    for (qsizetype end = i + 1; end < sql.size(); end += sql.at(end) == quote ? 2 : 1) {
        if (sql.at(end) == quote && !(end + 1 < sql.size() && sql.at(end + 1) == quote))
            return end + 1;
    }
    return -1;
}

// The piece that starts at i.
SqlPiece pieceAt(const QString &sql, qsizetype i)
{
    const QChar c = sql.at(i);
    const auto run = [&](auto same) {
        qsizetype end = i + 1;
        while (end < sql.size() && same(sql.at(end)))
            ++end;
        return end;
    };
    if (c == u'\'' || c == u'"' || c == u'`') {
        const qsizetype end = quoteEnd(sql, i);
        if (c != u'\'')
            return {c == u'"' ? SqlPieceKind::DoubleQuoted : SqlPieceKind::BackQuoted, i, end < 0 ? sql.size() : end};
        return end < 0 ? SqlPiece{SqlPieceKind::Unclosed, i, sql.size()} : SqlPiece{SqlPieceKind::Quoted, i, end};
    }
    if (c == u'[') {
        if (const qsizetype close = sql.indexOf(u']', i + 1); close > 0)
            return {SqlPieceKind::Bracketed, i, close + 1};
    }
    if (c == u'#') {
        const qsizetype close = run(isDateCharacter);
        if (close < sql.size() && close > i + 1 && sql.at(close) == u'#')
            return {SqlPieceKind::Date, i, close + 1};
    }
    if (c.isSpace())
        return {SqlPieceKind::Space, i, run([](QChar d) { return d.isSpace(); })};
    if (isNameCharacter(c))
        return {SqlPieceKind::Name, i, run(isNameCharacter)};
    const bool different = c == u'<' && i + 1 < sql.size() && sql.at(i + 1) == u'>';
    return {SqlPieceKind::Symbol, i, i + (different ? 2 : 1)};
}

} // namespace

QList<SqlPiece> SqlPieces(const QString &sql)
{
    QList<SqlPiece> pieces;
    for (qsizetype i = 0; i < sql.size(); i = pieces.back().end)
        pieces.append(pieceAt(sql, i));
    return pieces;
}

} // namespace zolt
