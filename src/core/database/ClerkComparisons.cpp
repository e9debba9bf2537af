// SPDX-License-Identifier: MIT
#include "core/database/ClerkComparisons.h"

#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/database/SqlLexer.h"
#include "core/text/TextFold.h"

#include <QHash>
#include <QSqlDriver>

#include <algorithm>
#include <optional>

namespace zolt {

namespace {

enum class Kind { Space, Quoted, Name, Symbol };

struct Token {
    Kind kind;
    qsizetype begin, end;
};

// The statement's pieces as operands and the rest: names of every form are
// names, a name chain such as T.[Name] is one operand, and text left
// unclosed is no literal to compare with.
QList<Token> tokens(const QString &sql)
{
    QList<Token> out;
    for (const SqlPiece &piece : SqlPieces(sql)) {
        Kind kind = Kind::Symbol;
        switch (piece.kind) {
        case SqlPieceKind::Space: kind = Kind::Space; break;
        case SqlPieceKind::Quoted: kind = Kind::Quoted; break;
        case SqlPieceKind::DoubleQuoted: case SqlPieceKind::BackQuoted: case SqlPieceKind::Bracketed:
        case SqlPieceKind::Name: kind = Kind::Name; break;
        default: break;
        }
        if (kind == Kind::Name && !out.isEmpty() && out.back().kind == Kind::Name && out.back().end == piece.begin)
            out.back().end = piece.end;
        else
            out.append({kind, piece.begin, piece.end});
    }
    return out;
}

// A comparison of an operand with quoted text, as tokens: [first, last].
struct Comparison {
    qsizetype operand;          // token index
    QString op;                 // "=", "<>", "!=", "LIKE", "IN", upper-cased
    bool negated = false;       // NOT LIKE, NOT IN
    QList<qsizetype> literals;  // token indexes
    qsizetype last;             // the literal, or the ")" closing the list
};

class Reader {
public:
    Reader(const QString &sql, const QList<Token> &t)
        : m_sql(sql), m_tokens(t)
    {
    }

    QString text(qsizetype index) const
    {
        const Token &t = m_tokens[index];
        return m_sql.mid(t.begin, t.end - t.begin);
    }
    bool is(qsizetype index, QLatin1String word) const
    {
        return index < m_tokens.size() && text(index).compare(word, Qt::CaseInsensitive) == 0;
    }
    qsizetype skipSpace(qsizetype index) const
    {
        while (index < m_tokens.size() && m_tokens[index].kind == Kind::Space)
            ++index;
        return index;
    }
    bool quoted(qsizetype index) const { return index < m_tokens.size() && m_tokens[index].kind == Kind::Quoted; }

    // The comparison whose operand is token i, if one is there.
    std::optional<Comparison> comparisonAt(qsizetype i) const
    {
        static const QLatin1String keywords[] = {QLatin1String("NOT"), QLatin1String("AND"), QLatin1String("OR"),
                                                 QLatin1String("WHERE"), QLatin1String("LIKE"), QLatin1String("IN")};
        if (m_tokens[i].kind != Kind::Name || std::any_of(std::begin(keywords), std::end(keywords),
                                                          [&](QLatin1String k) { return is(i, k); }))
            return std::nullopt;
        Comparison c{i, {}, false, {}, 0};
        qsizetype at = skipSpace(i + 1);
        if (is(at, QLatin1String("NOT"))) {
            c.negated = true;
            at = skipSpace(at + 1);
        }
        if (at >= m_tokens.size())
            return std::nullopt;
        c.op = text(at).toUpper();
        const bool plain = !c.negated && (c.op == u'=' || c.op == QLatin1String("<>") || c.op == QLatin1String("!="));
        at = skipSpace(at + 1);
        if (plain || c.op == QLatin1String("LIKE")) {
            if (!quoted(at))
                return std::nullopt;
            c.literals = {at};
            c.last = at;
            return c;
        }
        if (c.op != QLatin1String("IN") || !is(at, QLatin1String("(")))
            return std::nullopt;
        for (at = skipSpace(at + 1); quoted(at); at = skipSpace(at + 1)) {
            c.literals.append(at);
            at = skipSpace(at + 1);
            if (is(at, QLatin1String(")"))) {
                c.last = at;
                return c;
            }
            if (!is(at, QLatin1String(",")))
                return std::nullopt;
        }
        return std::nullopt;
    }

private:
    const QString &m_sql;
    const QList<Token> &m_tokens;
};

enum class Engine { SQLite, PostgreSQL, MariaDB, Other };

Engine engineOf(const QSqlDatabase &db)
{
    switch (db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite: return Engine::SQLite;
    case QSqlDriver::PostgreSQL: return Engine::PostgreSQL;
    case QSqlDriver::MySqlServer: return Engine::MariaDB;
    default: return Engine::Other;
    }
}

// The letters with marks that fold to each bare letter: "a" to à, á … ậ.
const QHash<QChar, QString> &markedLetters()
{
    static const QHash<QChar, QString> letters = [] {
        QHash<QChar, QString> out;
        const char16_t *bare = BareFold();
        for (char16_t u = 0xC0; u < 0x1F00; ++u) {
            if (QChar(u).isLetter() && bare[u] >= u'a' && bare[u] <= u'z')
                out[QChar(bare[u])] += QChar(u);
        }
        return out;
    }();
    return letters;
}

QString escapedForRegex(const QString &text)
{
    static const QString special = QStringLiteral("\\^$.|?*+()[]{}");
    QString out;
    for (const QChar c : text)
        out += special.contains(c) ? QString(u'\\') + c : QString(c);
    return out;
}

// A character as composed or decomposed text may spell it ("ễ" as one
// character, as "ê" and a tilde, or as "e" and two marks).
QString spellings(QChar c)
{
    const QString decomposed = QString(c).normalized(QString::NormalizationForm_D);
    if (decomposed.size() == 1)
        return escapedForRegex(QString(c));
    QStringList forms = {QString(c), decomposed};
    if (decomposed.size() == 3)
        forms << decomposed.left(2).normalized(QString::NormalizationForm_C) + decomposed.back();
    for (QString &form : forms)
        form = escapedForRegex(form);
    return QStringLiteral("(?:") + forms.join(u'|') + u')';
}

// A LIKE pattern (its literal, apostrophes and all) as the regular expression
// MariaDB matches a clerk's text with: its LIKE compares text stored
// decomposed character by character, so "Bánh" written as "a" and an accent
// would be missed. Case never matters; "%" is any text, "_" one letter with
// its marks; bare, every letter stands for itself with any marks.
QString regexOf(const QString &literal, bool bare)
{
    const QString pattern = literal.mid(1, literal.size() - 2).replace(QStringLiteral("''"), QStringLiteral("'"));
    QString out = QStringLiteral("(?i)^");
    for (const QChar c : pattern.normalized(QString::NormalizationForm_C)) {
        const QChar lower = c.toLower();
        if (c == u'%')
            out += QStringLiteral(".*");
        else if (c == u'_')
            out += QStringLiteral("\\X");
        else if (bare && markedLetters().contains(lower))
            out += u'[' + lower + markedLetters()[lower] + QStringLiteral("]\\p{Mn}*");
        else
            out += spellings(c);
    }
    return u'\'' + out.replace(u'\'', QStringLiteral("''")) + QStringLiteral("$'");
}

// The comparison in the engine's clerk form.
QString rewritten(const Reader &r, const Comparison &c, Engine engine, bool accentBlindSearch)
{
    QString typed;
    for (qsizetype literal : c.literals)
        typed += r.text(literal);
    const bool bare = AccentBlindFor(typed, accentBlindSearch);
    const QString operand = r.text(c.operand);
    const QString nott = c.negated ? QStringLiteral("NOT ") : QString();
    QStringList literals;
    for (qsizetype literal : c.literals)
        literals << r.text(literal);

    if (engine == Engine::MariaDB) {
        if (c.op == QLatin1String("LIKE"))
            return operand + u' ' + nott + QStringLiteral("REGEXP ") + regexOf(literals.front(), bare);
        const QString collated = operand + (bare ? QStringLiteral(" COLLATE utf8mb4_uca1400_nopad_ai_ci ")
                                                 : QStringLiteral(" COLLATE utf8mb4_uca1400_nopad_as_ci "));
        return c.op == QLatin1String("IN") ? collated + nott + QStringLiteral("IN (") + literals.join(u',') + u')'
                                           : collated + c.op + u' ' + literals.front();
    }
    if (engine == Engine::PostgreSQL) {
        const QString fold = bare ? QStringLiteral("zolt_bare(") : QStringLiteral("zolt_nocase(");
        for (QString &literal : literals)
            literal = fold + literal + u')';
        const QString left = fold + operand + QStringLiteral(") ") + nott + c.op + u' ';
        return c.op == QLatin1String("IN") ? left + u'(' + literals.join(QStringLiteral(", ")) + u')'
                                           : left + literals.front();
    }
    const QString collation = bare ? QStringLiteral(" COLLATE ZOLT_BARE") : QStringLiteral(" COLLATE NOCASE");
    if (c.op == QLatin1String("IN"))
        return operand + collation + u' ' + nott + QStringLiteral("IN (") + literals.join(u',') + u')';
    if (c.op != QLatin1String("LIKE"))
        return operand + u' ' + c.op + u' ' + literals.front() + collation;
    if (!bare)   // the connection's LIKE is case-blind already
        return operand + u' ' + nott + QStringLiteral("LIKE ") + literals.front();
    return nott + QStringLiteral("zolt_bare_like(") + operand + QStringLiteral(", ") + literals.front() + u')';
}

} // namespace

QString ClerkComparisons(const QSqlDatabase &db, const QString &condition)
{
    const Engine engine = engineOf(db);
    if (engine == Engine::Other)
        return condition;
    const bool accentBlindSearch = AccentBlindSearchOn(db);
    const QList<Token> t = tokens(condition);
    const Reader reader(condition, t);
    QString out;
    qsizetype copied = 0;   // source text up to here is in out
    for (qsizetype i = 0; i < t.size(); ++i) {
        const auto comparison = reader.comparisonAt(i);
        if (!comparison)
            continue;
        out += QStringView(condition).mid(copied, t[i].begin - copied);
        out += rewritten(reader, *comparison, engine, accentBlindSearch);
        copied = t[comparison->last].end;
        i = comparison->last;
    }
    return out + condition.mid(copied);
}

QString ConditionSql(const QSqlDatabase &db, const QString &condition)
{
    return DriverSql(db, ClerkComparisons(db, condition));
}

} // namespace zolt
